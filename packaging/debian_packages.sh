# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run, ./test and ./package: the Debian packages that building, running, packaging and testing need.
. packaging/progress.sh

BUILD_PACKAGES="g++ cmake ninja-build pkg-config ccache qt6-base-dev qt6-tools-dev qt6-tools-dev-tools
    qt6-documentation-tools qt6-svg-dev libqt6sql6-sqlite libqcustomplot-dev libxlsxwriter-dev zlib1g-dev libfontconfig-dev
    libcli11-dev nlohmann-json3-dev libxcb1-dev"
RUN_PACKAGES="fonts-liberation fonts-dejavu-core"
PACKAGE_PACKAGES="dpkg-dev file git"
TEST_PACKAGES="libgtest-dev libgmock-dev libx11-dev xvfb xauth openbox xdotool xclip qt6-wayland weston
    poppler-utils imagemagick python3 python3-jsonschema jq make clang-14 lld
    shared-mime-info desktop-file-utils appstream lintian mandoc zsh fish"
COVERAGE_PACKAGES="llvm-14 libclang-rt-14-dev"
ALL_TEST_PACKAGES="libbenchmark-dev clang-format clang-tidy libclang-rt-14-dev debootstrap"

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
        if ! command -v sudo >/dev/null || ! sudo -v; then
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
