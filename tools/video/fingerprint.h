#pragma once

#include <memory>
#include <string>
#include <string_view>

struct XXH3_state_s;

namespace tools::video {

/// Of several texts a short fingerprint. For telling versions apart, not for safety.
class Fingerprint {
public:
    Fingerprint();

    /// Adds a text. Where it ends counts too.
    void add(std::string_view bytes);

    /// 16 hexadecimal digits for what has been added.
    std::string text() const;

private:
    struct Free {
        void operator()(XXH3_state_s* state) const;
    };

    std::unique_ptr<XXH3_state_s, Free> state;
};

} // namespace tools::video
