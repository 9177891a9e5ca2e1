# SPDX-License-Identifier: MIT
# The Debian packages each purpose needs, and how they are installed. Sourced by scripts/common.sh.

# purpose    packages; one with a question mark only comes along when another has to be installed
packages_table='
component    g++ cmake ninja-build libgtest-dev ccache? locales?
qt           qt6-base-dev libqt6sql6-sqlite libgl1-mesa-dev fonts-dejavu-core fonts-liberation fontconfig qt6-wayland? libqt6sql6-psql?
server       postgresql libqt6sql6-psql
designer     qt6-tools-dev libqt6opengl6-dev qt6-tools-dev-tools?
shipping     pkg-config desktop-file-utils? appstream? man-db?
package      dpkg-dev binutils lintian fakeroot?
clean-system debootstrap
api          doxygen
coverage     gcovr
fuzz         clang libclang-rt-14-dev
bench        libbenchmark-dev libfmt-dev libicu-dev libsqlite3-dev
instructions valgrind
tidy         clang-tidy
portable     clang-16 libc++-16-dev libc++abi-16-dev libclang-rt-16-dev googletest g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
windows      g++-mingw-w64-x86-64-posix mingw-w64-tools libwine-dev wine wine64 xvfb xauth googletest
windows-package nsis zip
mutants      python3
'

# packages_for <purpose>...: their packages, one a line.
packages_for() {
    local purpose
    for purpose in "$@"; do
        awk -v purpose="$purpose" '
            $1 == purpose { for (i = 2; i <= NF; ++i) print $i; found = 1 }
            END { exit !found }' <<<"$packages_table" ||
            { echo "packages: unknown purpose \"$purpose\"" >&2; return 1; }
    done
}

package_is_installed() {
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# packages_are_there <purpose>...: whether all of them are installed.
packages_are_there() {
    local package
    for package in $(packages_for "$@"); do
        [[ $package == *\? ]] || package_is_installed "$package" || return 1
    done
}

# ensure_packages <purpose>...: installs what is missing; where that is not allowed, says how and fails.
ensure_packages() {
    local list package required=() optional=()
    list=$(packages_for "$@")
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "This is no Debian system; taking for granted what these packages hold:" $list >&2
        return 0
    fi
    for package in $list; do
        package_is_installed "${package%\?}" && continue
        if [[ $package == *\? ]]; then
            optional+=("${package%\?}")
        else
            required+=("$package")
        fi
    done
    ((${#required[@]} == 0)) && return 0

    local missing=("${required[@]}" ${optional[@]+"${optional[@]}"})
    local root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null || ! sudo -n true 2>/dev/null; then
            echo "Packages are missing. Please install them and try again:" >&2
            echo "  sudo apt-get update && sudo apt-get install -y --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
        root=(sudo -n)
    fi
    local apt=(${root[@]+"${root[@]}"} env DEBIAN_FRONTEND=noninteractive
        apt-get -q -o DPkg::Lock::Timeout=120)
    echo "Installing ${missing[*]}"
    # An index that cannot be refreshed may still be good enough to install from.
    "${apt[@]}" update || "${apt[@]}" update || echo "The package index could not be refreshed." >&2
    if ! "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; then
        echo "These packages could not be installed: ${missing[*]}" >&2
        return 1
    fi
}
