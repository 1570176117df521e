# shellcheck shell=bash disable=SC2034
# What the project needs from Debian 12, and how it gets there. Sourced by every script that installs or builds; none
# uses all lists.

build_packages=(
    cmake g++ ninja-build pkg-config
    libassimp-dev libcli11-dev libembree-dev libfmt-dev libgl-dev libglew-dev libglm-dev libglu1-mesa-dev libsdl2-dev
    libsdl2-mixer-dev libspng-dev libsquish-dev libstb-dev libvorbis-dev libxxhash-dev
    libegl1 libgl1-mesa-dri libglx-mesa0 libgl1)
video_packages=(ffmpeg)
test_packages=(ccache ffmpeg libgmock-dev libgtest-dev python3-gi python3-numpy vorbis-tools)
look_packages=(clang-format git shellcheck)
lint_packages=(clang-tidy doxygen)
clang_packages=(clang)
tsan_packages=(libtsan2)
art_packages=(
    bc blender csound ffmpeg fonts-bebas-neue fonts-league-spartan fonts-leckerli-one fonts-yanone-kaffeesatz
    gir1.2-pango-1.0 optipng python3-gi python3-gi-cairo python3-numpy python3-openvdb python3-pil vorbis-tools zopfli)

library_packages=(
    dpkg-dev libasound2-dev libdbus-1-dev libdecor-0-dev libegl-dev libgles-dev libibus-1.0-dev libminizip-dev
    libpipewire-0.3-dev libpulse-dev libudev-dev libutfcpp-dev libwayland-dev libx11-dev libxcursor-dev libxext-dev
    libxfixes-dev libxi-dev libxkbcommon-dev libxrandr-dev libxss-dev wayland-protocols zlib1g-dev)

dist_packages=(binutils desktop-file-utils git libtree python3 unzip xz-utils zip)

clean_start_packages=(debootstrap strace xvfb)

# require PACKAGE...: installs those that are missing, having said which.
require() {
    local missing=() package installed
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null) || true # it fails if one is unknown
    for package in "$@"; do
        grep -qxF "$package installed" <<<"$installed" || missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    local root=()
    if ((EUID != 0)); then
        command -v sudo >/dev/null || fail "these packages are missing, and there is no sudo to install them: ${missing[*]}"
        root=(sudo)
    fi
    command -v apt-get >/dev/null || fail "these packages are missing, and there is no apt-get to install them: ${missing[*]}"
    echo "$me: installing ${missing[*]}"
    local log
    log=$(mktemp)
    if ! { "${root[@]}" apt-get update && "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 15 "$log" >&2
        fail "apt-get could not install ${missing[*]}; all it said is in $log"
    fi
    rm -f "$log"
}

# configure PRESET [OPTION...]: makes the build folder ready, quietly unless it fails.
configure() {
    local preset=$1 log
    shift
    log=build/$preset-configure.log
    mkdir -p build
    cmake --preset "$preset" "$@" >"$log" 2>&1 || { cat "$log" >&2; fail "cmake could not configure; see above"; }
}

# build PRESET TARGET: builds, with a line of progress.
build() {
    local preset=$1 target=$2 log
    log=build/$preset.log
    local progress=(cat)
    [[ -t 1 ]] || progress=(sed -un '/^\[[0-9]*[05]0\/[0-9]*\]/p') # in a log, a line for every 50 steps
    if ! cmake --build --preset "$preset" --target "$target" 2>&1 | tee "$log" | "${progress[@]}"; then
        grep -v '^\[' "$log" | sed -n '1,60p' >&2
        fail "the $preset build failed; all it said is in $log"
    fi
}

# fail SENTENCE: ends the script with it.
fail() {
    echo "$me: $*" >&2
    exit 1
}
