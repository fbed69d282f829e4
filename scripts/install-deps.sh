#!/usr/bin/env bash
# Installs the Debian packages needed to build, test, benchmark and run Panelkit. Installs only
# what is missing, so it is cheap to run before every build.
set -euo pipefail

packages=(
    # Toolchain.
    cmake g++ make pkg-config ccache
    # Drawing, text, fonts, icons and windows.
    libcairo2-dev libpango1.0-dev libharfbuzz-dev libfontconfig-dev librsvg2-bin libx11-dev libxext-dev
    fonts-dejavu-core
    # Libraries the code uses.
    libloki-dev nlohmann-json3-dev
    # Tests and benchmarks.
    libgtest-dev libgmock-dev libbenchmark-dev
    # Locale sources, from which the tests compile a decimal-comma locale.
    locales
    # A virtual X display and the tools tests drive it with.
    xvfb xauth xdotool xclip
)

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    if [[ "$status" != "install ok installed" ]]; then
        missing+=("$package")
    fi
done

if ((${#missing[@]} == 0)); then
    echo "install-deps: nothing is missing"
    exit 0
fi

if ((EUID == 0)); then
    as_root=()
elif command -v sudo >/dev/null 2>&1; then
    as_root=(sudo)
else
    echo "install-deps: missing packages: ${missing[*]}" >&2
    echo "install-deps: installing them needs root, and sudo is not available; run this script as root" >&2
    exit 1
fi

echo "install-deps: installing ${missing[*]}"
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
