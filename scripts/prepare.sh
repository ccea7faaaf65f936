# Read by the other scripts: brings in what they need.
# shellcheck shell=bash

cmake_needed=3.25 # as CMakeLists.txt says

# say WORDS...: a line that stands out from the output of the tools.
say() {
    printf '\n== %s\n' "$*"
}

# complain WORDS...: a line to the standard error, and failure.
complain() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    return 1
}

# packages_of GROUP...: the packages that scripts/packages.txt lists for the groups.
packages_of() {
    local group package
    while read -r group package; do
        case " $* " in
            *" $group "*) printf '%s\n' "$package" ;;
        esac
    done <scripts/packages.txt
}

# is_installed PACKAGE: whether it, or one that provides it, is installed.
is_installed() {
    dpkg-query -W -f '${Package}, ${Provides}|${db:Status-Status}\n' | awk -F '|' -v wanted="$1" '
        $2 == "installed" {
            count = split($1, names, /, */)
            for (i = 1; i <= count; ++i) {
                sub(/ .*/, "", names[i])
                if (names[i] == wanted) found = 1
            }
        }
        END { exit !found }'
}

# as_root COMMAND...: runs a command as root, through sudo where that is needed.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        complain "root is needed to run: $*"
    fi
}

# bring_in GROUP...: installs the packages of the groups that are missing. It asks nothing.
bring_in() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say "No apt-get here: what scripts/packages.txt lists is taken to be installed already"
        return
    fi
    local package missing=()
    for package in $(packages_of "$@"); do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "Installing ${missing[*]}"
    if ! as_root apt-get update -q || ! as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}"; then
        complain "could not install ${missing[*]}"
    fi
}

# is_new_enough CMAKE: whether that cmake exists and is the needed version or newer.
is_new_enough() {
    local version
    version=$("$1" --version 2>/dev/null | sed -n 's/^cmake version \([0-9.]*\).*/\1/p')
    [ -n "$version" ] && printf '%s\n' "$cmake_needed" "$version" | sort -V -C
}

# choose_cmake: sees to it that `cmake` is new enough; an old one that hides the system's is passed by.
choose_cmake() {
    is_new_enough cmake && return
    if is_new_enough /usr/bin/cmake; then
        PATH=/usr/bin:$PATH
    else
        complain "cmake $cmake_needed or newer is needed, and this system's packages do not have it"
    fi
}

# build DIRECTORY PRESET [CMAKE ARGUMENT...]: configures a preset there and builds it on all processors.
build() {
    local directory=$1 preset=$2
    shift 2
    say "Building $preset"
    cmake --preset "$preset" -B "$directory" "$@"
    cmake --build "$directory" --parallel "$(nproc)"
}
