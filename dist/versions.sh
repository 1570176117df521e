# shellcheck shell=bash
# What programs ask of the system's libraries. Sourced by release and dist/check_folder.

# latest_asked NAME FILE...: the latest version of NAME (GLIBC, GLIBCXX) that any of the files asks for; nothing, if none
# does. Files that are no programs ask for nothing.
latest_asked() {
    local name=$1
    shift
    { objdump -T "$@" 2>/dev/null || true; } | { grep -oP "\b${name}_\K[0-9.]+" || true; } | sort -uV | tail -n 1
}
