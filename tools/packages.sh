# shellcheck shell=bash disable=SC2034
# The Debian packages that each task needs, and their installation. To be sourced, by bash.

packages_build=(
    ccache cmake g++ ninja-build pkg-config
    qt6-base-dev qt6-base-private-dev qt6-declarative-dev qt6-svg-dev qt6-webengine-dev qt6-webengine-dev-tools
    libqt6opengl6-dev qt6-multimedia-dev qt6-pdf-dev libsodium-dev qtkeychain-qt6-dev
)
packages_run=(ca-certificates dbus-x11 fonts-dejavu-core fonts-liberation2 libqt6sql6-sqlite qt6-qpa-plugins)
# A virtual screen with a window manager, and a way to send it clicks and keys.
packages_screen=(openbox python3 x11-utils xauth xdotool xvfb)
packages_test=(git openssl python3)
packages_lint=(clang clang-format clang-tidy python3)
packages_bench=(libbenchmark-dev python3)

# installed PACKAGE: whether it is there and complete.
installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# ensure_packages GROUP...: installs what is missing from these groups; asks apt for nothing when all is there. Ends the
# script with a message when it cannot.
ensure_packages() {
    local group package missing=() as_root=()
    for group in "$@"; do
        local -n list="packages_$group"
        for package in "${list[@]}"; do
            installed "$package" || missing+=("$package")
        done
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and only root can install them:" >&2
            echo "    apt-get install ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}" >&2
    # The lock of another apt run is waited for rather than failed on.
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 -y -q)
    if ! "${apt[@]}" update </dev/null >&2; then
        echo "apt-get update reported errors; trying with the package lists that are there" >&2
    fi
    if ! "${apt[@]}" install --no-install-recommends "${missing[@]}" </dev/null >&2; then
        echo "Could not install ${missing[*]}" >&2
        exit 1
    fi
}

# engine_sandbox: the engine refuses to start its sandbox as root. Only then it is switched off, and never silently.
engine_sandbox() {
    if [ "$(id -u)" -eq 0 ] && [ "${QTWEBENGINE_DISABLE_SANDBOX:-}" != 1 ]; then
        echo "warning: running as root, so the engine's sandbox is switched off; browse as an ordinary user instead" >&2
        export QTWEBENGINE_DISABLE_SANDBOX=1
    fi
}
