#!/bin/sh
# Says what this machine has of what the show needs. The last line is "will run", or "will not run, because ..."; the
# status is 0 or 1 with it. Changes nothing. Needs nothing but a shell and what every system has.
folder=$(dirname -- "$(readlink -f -- "$0")")
cd "$folder" || exit
LC_ALL=C
export LC_ALL

oldest_glibc=2.35 # a release knows exactly

say() { printf '%-13s %s\n' "$1" "$2"; }

# because REASON: the show will not run.
reasons=
because() { reasons="${reasons:+$reasons, and }$1"; }

# joined LINES...: in one line.
joined() { printf '%s\n' "$@" | tr -s '\n' ' ' | sed 's/^ //; s/ $//'; }

# because_of SENTENCE LINES: the same, if there are any lines; they end the sentence.
because_of() { [ -z "$2" ] || because "$1 $(joined "$2")"; }

has() { command -v "$1" >/dev/null 2>&1; }

# older A B: whether version A comes before version B. Both are NUMBER.NUMBER.
older() {
    [ "${1%%.*}" -lt "${2%%.*}" ] || { [ "${1%%.*}" -eq "${2%%.*}" ] && [ "${1#*.}" -lt "${2#*.}" ]; }
}

check_system() {
    name=$(sed -n 's/^PRETTY_NAME=//p' "${OS_RELEASE:-/etc/os-release}" 2>/dev/null | tr -d '"')
    say distribution "${name:-unknown}"
    kernel=$(uname -s) machine=$(uname -m)
    say machine "$kernel $(uname -r) $machine"
    if [ "$kernel $machine" != "Linux x86_64" ]; then
        because "it is made for Linux on x86_64, and this is $kernel on $machine"
    fi
}

# Each line of SHA256SUMS is a sum, two spaces, and the name of a file.
check_files() {
    if ! [ -f SHA256SUMS ]; then
        say files "SHA256SUMS is missing, so nothing can be compared"
        because "the file SHA256SUMS is missing: unpack the whole archive again"
        return
    fi
    missing=$(sed 's/^[^ ]*  //' SHA256SUMS | while read -r file; do [ -f "$file" ] || echo "$file"; done)
    damaged=
    if has sha256sum; then
        damaged=$(sha256sum -c SHA256SUMS 2>/dev/null | sed -n 's/: FAILED$//p')
    fi
    because_of "these files are missing:" "$missing"
    because_of "these files are damaged:" "$damaged"
    if [ -n "$missing$damaged" ]; then
        say files "not as they were made: $(joined "$missing" "$damaged")"
    elif has sha256sum; then
        say files "all $(wc -l <SHA256SUMS | tr -d ' ') as they were made"
    else
        say files "all there; there is no sha256sum to compare them with"
    fi
    for file in vesperal lib/probe; do
        if [ -f $file ] && ! [ -x $file ]; then
            because "the file $file may not be executed: chmod +x $file, or move the folder to a disk that allows it"
        fi
    done
}

check_libraries() {
    glibc=$(getconf GNU_LIBC_VERSION 2>/dev/null | sed -n 's/^glibc \([0-9]*\.[0-9]*\).*/\1/p')
    if [ -z "$glibc" ]; then
        say glibc "none"
        because "the C library of this system is not glibc, or says no version"
        return
    fi
    say glibc "$glibc"
    if older "$glibc" $oldest_glibc; then
        because "glibc is $glibc, and it has to be $oldest_glibc or later"
        return # what else ldd would say follows from that
    fi
    if ! has ldd || ! [ -f vesperal ]; then
        say libraries "unknown"
        return
    fi
    listed=$(ldd ./vesperal 2>&1)
    absent=$(echo "$listed" | sed -n 's/^[[:space:]]*\([^ ]*\) => not found.*/\1/p' | sort -u)
    # /usr/lib/libstdc++.so.6: version `GLIBCXX_3.4.30' not found (required by ./vesperal)
    versions=$(echo "$listed" | sed -n "s/.*version \`\([^']*\)' not found.*/\1/p" | sort -u)
    because_of "these libraries of the system are missing:" "$absent"
    because_of "libraries of the system are too old; what is missing is" "$versions"
    if [ -n "$absent$versions" ]; then
        say libraries "missing: $(joined "$absent" "$versions")"
    else
        say libraries "all there"
    fi
}

# found KEY: what the probe tells of KEY. Lines of the probe are KEY=VALUE.
found() { echo "$probed" | sed -n "s/^$1=//p"; }

# Asks lib/probe, which opens what the show opens, without showing it.
probe() {
    probed=
    [ -z "$reasons" ] || return # it would not start either
    if has timeout; then
        probed=$(timeout 30 ./lib/probe 2>/dev/null)
    else
        probed=$(./lib/probe 2>/dev/null)
    fi
    status=$?
    [ $status = 0 ] || because "window, driver or sound broke down when they were tried (status $status)"
}

check_window() {
    desktop=${WAYLAND_DISPLAY:+Wayland $WAYLAND_DISPLAY}
    desktop=$desktop${DISPLAY:+${desktop:+, }X11 $DISPLAY}
    say windows "${desktop:-no window system}${probed:+ ($(found video))}"
    if [ -z "$desktop" ] || [ "$(found video)" = offscreen ] || [ "$(found video)" = dummy ]; then
        because "there is no window system to show it in: start it inside a desktop"
    elif [ -n "$(found video_error)" ]; then
        because "no window can be opened: $(found video_error)"
    fi
    screen=$(found screen)
    say screen "${screen:-unknown}"
}

check_opengl() {
    vendor=$(found gl_vendor) renderer=$(found gl_renderer) version=$(found gl_version)
    if [ -z "$version" ] && has glxinfo; then
        glx=$(glxinfo -B 2>/dev/null)
        vendor=$(echo "$glx" | sed -n 's/^OpenGL vendor string: //p')
        renderer=$(echo "$glx" | sed -n 's/^OpenGL renderer string: //p')
        version=$(echo "$glx" | sed -n 's/^OpenGL core profile version string: //p')
    fi
    say "GL vendor" "${vendor:-unknown}"
    say "GL renderer" "${renderer:-unknown}"
    say "GL version" "${version:-unknown}"
    say S3TC "$(found s3tc | grep . || echo unknown)"
    if [ -n "$(found gl_error)" ]; then
        because "the driver does not give OpenGL 4.5 core${version:+, but $version}: $(found gl_error)"
    elif [ "$(found s3tc)" = no ]; then
        because "the driver has no S3TC textures (GL_EXT_texture_compression_s3tc)"
    fi
    case $renderer in
        llvmpipe* | softpipe* | swrast* | "Software Rasterizer"*)
            say note "no graphics card is at work here; the picture will move in jerks" ;;
    esac
}

check_audio() {
    runtime=${XDG_RUNTIME_DIR:-/run/user/$(id -u)}
    server=
    [ -S "$runtime/pulse/native" ] && server="PulseAudio"
    [ -S "$runtime/pipewire-0" ] && server="PipeWire${server:+ (with $server)}"
    [ -z "$server" ] && [ -e "${ASOUND:-/proc/asound}/cards" ] && server="none, ALSA alone"
    driver=$(found audio)
    say audio "${server:-no server}${driver:+; it opens through $driver}"
    because_of "no sound device opens:" "$(found audio_error)"
}

check_system
check_files
check_libraries
probe
check_window
check_opengl
check_audio
if [ -n "$reasons" ]; then
    echo "will not run, because $reasons"
    exit 1
fi
echo "will run"
