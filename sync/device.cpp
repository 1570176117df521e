#include "sync/device.h"

#include <arpa/inet.h>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::size_t path_size = 4096; ///< of the path buffers, the closing NUL included

/// Appends as much of `text` as fits into a path buffer.
void append(char* path, const char* text)
{
    const std::size_t used = std::strlen(path);
    const std::size_t added = strnlen(text, path_size - 1 - used);
    std::memcpy(path + used, text, added);
    path[used + added] = '\0';
}

bool is_kept(unsigned char byte)
{
    return std::isalnum(byte) != 0 || byte == '.' || byte == '/' || byte == '_';
}

/// Fills `track` from an open file. No result of `read` is looked at: a short file leaves what it doesn't
/// fill.
void read_keys(sync_device* device, sync_track* track, std::FILE* stream)
{
    device->read(&track->num_keys, 4, 1, stream);
    // A negative count becomes a size that no allocation can have.
    track->keys =
        static_cast<sync_key*>(std::malloc(sizeof(sync_key) * static_cast<std::size_t>(track->num_keys)));
    if (track->keys == nullptr) {
        return;
    }
    signed char type = 0;
    for (std::int32_t i = 0; i < track->num_keys; ++i) {
        sync_key& key = track->keys[i];
        device->read(&key.row, 4, 1, stream);
        device->read(&key.value, 4, 1, stream);
        device->read(&type, 1, 1, stream);
        key.type = type; // NOLINT(bugprone-signed-char-misuse): widened with its sign
    }
    device->close(stream);
}

bool send_whole(int sock, const void* data, std::size_t size)
{
    return send(sock, data, size, 0) == static_cast<ssize_t>(size);
}

} // namespace

const char* path_encode(const char* text)
{
    static char temp[path_size];
    constexpr char digits[] = "0123456789ABCDEF";
    constexpr int last = path_size - 1; // holds the closing NUL
    const auto length = static_cast<std::int32_t>(std::strlen(text));
    int pos = 0;
    for (std::int32_t i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (is_kept(byte)) {
            if (pos == last) {
                break;
            }
            temp[pos++] = text[i];
        } else {
            if (pos > last - 3) {
                break;
            }
            temp[pos++] = '-';
            temp[pos++] = digits[byte >> 4];
            temp[pos++] = digits[byte & 15];
        }
    }
    temp[pos] = '\0';
    return temp;
}

const char* sync_track_path(const char* base, const char* name)
{
    static char temp[path_size];
    temp[0] = '\0';
    append(temp, base);
    append(temp, "_");
    append(temp, path_encode(name));
    append(temp, ".track");
    return temp;
}

sync_device* sync_create_device(const char* base)
{
    auto* device = static_cast<sync_device*>(std::malloc(sizeof(sync_device)));
    if (device == nullptr) {
        return nullptr;
    }
    if (base == nullptr || base[0] == '/') {
        return nullptr; // NOLINT(clang-analyzer-unix.Malloc): left behind, as the program is about to end
    }
    device->base = strdup(path_encode(base));
    if (device->base == nullptr) {
        std::free(device);
        return nullptr;
    }
    device->tracks = nullptr;
    device->num_tracks = 0;
    device->row = -1;
    device->sock = -1;
    device->open = std::fopen;
    device->read = std::fread;
    device->close = std::fclose;
    return device;
}

void sync_destroy_device(sync_device* device)
{
    if (device->sock != -1) {
        close(device->sock);
    }
    for (std::size_t i = 0; i < device->num_tracks; ++i) {
        std::free(device->tracks[i]->name);
        std::free(device->tracks[i]->keys);
        std::free(device->tracks[i]);
    }
    std::free(device->tracks);
    std::free(device->base);
    std::free(device);
}

const sync_track* sync_get_track(sync_device* device, const char* name)
{
    for (std::size_t i = 0; i < device->num_tracks; ++i) {
        if (std::strcmp(device->tracks[i]->name, name) == 0) {
            return device->tracks[i];
        }
    }
    auto* track = static_cast<sync_track*>(std::malloc(sizeof(sync_track)));
    if (track == nullptr) {
        return nullptr;
    }
    track->name = strdup(name);
    track->keys = nullptr;
    track->num_keys = 0;

    const std::size_t size = (device->num_tracks + 1) * sizeof(void*);
    auto* tracks = static_cast<sync_track**>(std::realloc(device->tracks, size));
    if (tracks == nullptr) {
        std::free(track);
        return nullptr;
    }
    device->tracks = tracks;
    device->tracks[device->num_tracks] = track;
    ++device->num_tracks;

    if (device->sock != -1) {
        fetch_track_data(device, track);
        return track;
    }
    std::FILE* stream = device->open(sync_track_path(device->base, track->name), "rb");
    if (stream != nullptr) {
        read_keys(device, track, stream);
    }
    return track;
}

int fetch_track_data(sync_device* device, sync_track* track)
{
    constexpr unsigned char command = 2;
    const std::size_t length = std::strlen(track->name);
    const std::uint32_t wire_length = htonl(static_cast<std::uint32_t>(length));
    if (send_whole(device->sock, &command, 1) && send_whole(device->sock, &wire_length, 4) &&
        send_whole(device->sock, track->name, length))
    {
        return 0;
    }
    close(device->sock);
    device->sock = -1;
    return -1;
}
