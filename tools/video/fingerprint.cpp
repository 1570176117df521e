#include "tools/video/fingerprint.h"

#include <fmt/format.h>
#include <new>
#include <xxhash.h>

namespace tools::video {

Fingerprint::Fingerprint() : state(XXH3_createState())
{
    if (!state) {
        throw std::bad_alloc();
    }
    XXH3_64bits_reset(state.get());
}

void Fingerprint::add(std::string_view bytes)
{
    XXH3_64bits_update(state.get(), bytes.data(), bytes.size());
    const std::size_t length = bytes.size(); // so that the borders between texts count
    XXH3_64bits_update(state.get(), &length, sizeof length);
}

std::string Fingerprint::text() const
{
    return fmt::format("{:016x}", XXH3_64bits_digest(state.get()));
}

void Fingerprint::Free::operator()(XXH3_state_s* state) const
{
    XXH3_freeState(state);
}

} // namespace tools::video
