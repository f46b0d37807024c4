# What the scripts share. Sourced with `root` set to the project's folder.

# The Debian packages that each kind of work needs.
build_packages=(g++-12 cmake ninja-build ccache pkg-config libfmt-dev nlohmann-json3-dev libplist-dev
    libglib2.0-dev libicu-dev libsystemd-dev libxcb1-dev libxcb-xkb-dev zlib1g-dev
    libarchive-dev libcurl4-openssl-dev libexpat1-dev libpugixml-dev libssl-dev
    qt6-base-dev qt6-svg-dev bootstrap-icons)
# the extensions of file managers
extension_packages=(gcc-12 libnautilus-extension-dev libnemo-extension-dev libcaja-extension-dev)
test_packages=("${extension_packages[@]}" libgtest-dev libgmock-dev
    # the templates
    python3 python3-docx python3-openpyxl poppler-utils
    libreoffice-writer-nogui libreoffice-calc-nogui libreoffice-impress-nogui
    # the command line, its manual and its completions
    binutils groff zsh fish
    # releases, and the server of updates
    openssl zstd
    # the services of the system
    systemd locales xdg-user-dirs e2fsprogs mount
    # the desktop and its file managers
    xvfb openbox xdotool x11-utils x11-xkb-utils x11-xserver-utils xclip libxcb-xtest0-dev
    # the packages
    dpkg-dev zstd appstream
    dbus-daemon xfconf libglib2.0-bin desktop-file-utils xfce4-panel
    xdg-desktop-portal
    nautilus python3-nautilus thunar dolphin nemo caja pcmanfm-qt at-spi2-core
    python3-gi gir1.2-atspi-2.0)
package_packages=("${extension_packages[@]}" binutils dpkg-dev zstd)
fuzz_packages=(clang-19 libclang-rt-19-dev)
lint_packages=(clang-format-19 clang-tidy-19 clangd-19)
# the pictures of the documentation, and the font in them
screenshot_packages=(pngquant fonts-inter)
bench_packages=(libbenchmark-dev
    # updates, and what they are compared with
    openssl python3 zstd
    # the application on a desktop, and what it is compared with
    xvfb openbox dbus-daemon xfconf xfce4-panel libglib2.0-bin rofi
    libxcb-xtest0-dev libxcb-damage0-dev)

# Runs a command as root: as it is, or through sudo.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# need_packages NAME...: installs those of the packages that are missing. Prints on standard error only.
need_packages() {
    local missing=() name
    for name in "$@"; do
        if ! dpkg-query -W -f '${Status}\n' "$name" 2>/dev/null | grep -q '^install ok installed'; then
            missing+=("$name")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return
    fi
    echo "Installing ${missing[*]}" >&2
    quietly as_root apt-get update
    quietly as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# quietly COMMAND...: keeps the output back, and shows it on standard error if the command fails.
quietly() {
    local output status=0
    output=$(mktemp)
    "$@" >"$output" 2>&1 </dev/null || status=$?
    if [ "$status" -ne 0 ]; then
        cat "$output" >&2
    fi
    rm -f "$output"
    return "$status"
}

# What was compiled in one checkout serves another: paths below it are hashed as relative ones. What is
# compiled for the first time is not preprocessed once more for the cache's sake.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=true CCACHE_DEPEND=true

# build PRESET [CMAKE-OPTION...]: configures and builds a preset, silent unless it fails. The variable
# `targets` may name what to build of it.
build() {
    local preset=$1
    shift
    (
        cd "$root"
        quietly cmake --preset "$preset" "$@"
        quietly cmake --build --preset "$preset" ${targets:+--target $targets}
    )
}
