# Sourced by ./run and ./test: the Debian packages that building, running and testing need.

BUILD_PACKAGES="g++ cmake ninja-build pkg-config ccache qt6-base-dev qt6-tools-dev qt6-tools-dev-tools
    qt6-documentation-tools qt6-svg-dev libqt6sql6-sqlite libqcustomplot-dev libxlsxwriter-dev zlib1g-dev
    libcli11-dev nlohmann-json3-dev"
RUN_PACKAGES="fonts-liberation fonts-dejavu-core"
TEST_PACKAGES="libgtest-dev libgmock-dev libbenchmark-dev clang-14 libclang-rt-14-dev libx11-dev xvfb xauth openbox xdotool xclip
    poppler-utils imagemagick"

# Prints those of the packages named that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || printf '%s ' "$package"
    done
}

# Installs what is missing of the packages named; says so, and uses sudo when not root.
install_packages() {
    local missing as_root=""
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    [ "$(id -u)" -eq 0 ] || as_root="sudo"
    echo "Installing Debian packages: $missing"
    $as_root apt-get update -qq || return 1
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
