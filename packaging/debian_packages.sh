# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run, ./test, ./package, the tests and the package's own description: the Debian packages that building,
# running, packaging and testing need, for Debian 12 (bookworm) and 13 (trixie). No name carries a version: `clang` is
# whatever compiler the release has.
. packaging/progress.sh

BUILD_PACKAGES="g++ cmake ninja-build ccache qt6-base-dev qt6-tools-dev qt6-tools-dev-tools qt6-documentation-tools
    qt6-svg-dev libqcustomplot-dev libxlsxwriter-dev zlib1g-dev libfontconfig-dev libcli11-dev nlohmann-json3-dev"
# What the program asks for when it runs and no library of it tells, beside the workbook library, whose package carries the
# number of its interface: the reader of the compiled help, the drawings, the fonts of the report, the folders of the icons.
RUN_PACKAGES="libqt6sql6-sqlite fonts-liberation hicolor-icon-theme"
# What packages are made with, and what only some of them hold: the Python module.
PACKAGE_PACKAGES="build-essential debhelper dh-python dpkg-dev git pybind11-dev python3-dev python3-numpy"
TEST_PACKAGES="libgtest-dev libgmock-dev libx11-dev libxcb1-dev xvfb xauth openbox xdotool x11-utils xclip qt6-wayland weston
    dbus-daemon at-spi2-core python3-pyatspi python3-gi
    poppler-utils imagemagick python3 python3-jsonschema python3-mpmath python3-pytest python3-dask python3-distributed mypy
    pkg-config jq make clang lld fonts-dejavu-core locales
    $PACKAGE_PACKAGES shared-mime-info desktop-file-utils appstream lintian mandoc zsh fish"
COVERAGE_PACKAGES="llvm libclang-rt-dev"
# With the tools of the coverage the sanitizers name the lines of what they report.
ALL_TEST_PACKAGES="libbenchmark-dev clang-format clang-tidy debootstrap python3-openturns $COVERAGE_PACKAGES"
# Programs that an engineer would write for the same studies run on these; bench/studies.sh measures beside those that are
# installed. No command installs them.
PEER_PACKAGES="python3-numpy python3-pandas python3-openturns octave"

# add_release_packages RELEASE: what only some releases have. One that is not known is taken for a later one.
add_release_packages() {
    case $1 in
        bookworm) ;;
        # Debian 12 has the plugins in the library's own package.
        *) RUN_PACKAGES+=" qt6-svg-plugins" ;;
    esac
}
add_release_packages "${DEBIAN_RELEASE:-$(. /etc/os-release 2>/dev/null && echo "${VERSION_CODENAME:-}")}"

# Prints those of the packages named that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || printf '%s ' "$package"
    done
}

# The missing packages named, for a user who may not install any.
ask_administrator() {
    {
        echo "These Debian packages are missing, and installing them takes root or sudo:"
        echo "    $*"
        echo "Ask an administrator of this machine to run, then start again:"
        echo "    apt-get update && apt-get install --no-install-recommends $*"
    } >&2
}

# Installs what is missing of the packages named; says so, and uses sudo when not root. False where neither is at hand, or
# where the installation fails.
install_packages() {
    local missing as_root=""
    missing=$(missing_packages "$@")
    missing=${missing% }
    [ -n "$missing" ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        as_root="sudo"
        # A rule without a password answers the first question only: the second asks for one if any other rule has it.
        if ! command -v sudo >/dev/null || ! { sudo -n true 2>/dev/null || sudo -v; }; then
            ask_administrator "$missing"
            return 1
        fi
    fi
    echo "Debian packages that are missing: $missing"
    progress "Reading the package lists" $as_root apt-get update -qq || return 1
    # shellcheck disable=SC2086
    progress "Installing the packages" $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
        --no-install-recommends -o APT::Status-Fd=1 $missing
}
