#include "tools/common/read_file.h"

#include "tools/common/error.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace tools {

std::string readFile(const std::filesystem::path& path)
{
    const auto fail = [&path] {
        throw Error(path.string(), std::string("cannot read: ") + std::strerror(errno));
    };
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (file == nullptr) {
        fail();
    }
    std::string bytes;
    std::error_code unknown; // of what has no size, such as a pipe
    const auto expected = std::filesystem::file_size(path, unknown);
    if (!unknown) {
        bytes.reserve(expected);
    }
    std::array<char, 65536> buffer{};
    for (;;) {
        const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get());
        bytes.append(buffer.data(), count);
        if (count < buffer.size()) {
            break;
        }
    }
    if (std::ferror(file.get()) != 0) {
        fail();
    }
    return bytes;
}

} // namespace tools
