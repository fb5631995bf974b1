# shellcheck shell=bash
# Shared by ./run and ./check, sourced from the top of the source tree: messages and missing packages.

say() { printf '%s\n' "$@" >&2; } # each argument on a line of its own
die() {
    say "$@"
    exit 1
}

# packages_for USE...: the packages of these uses, once each.
packages_for() {
    local use
    for use in "$@"; do
        awk -v use="$use" '$1 !~ /^#/ && $2 == use { print $1 }' packaging/packages
    done | sort -u
}

# installed PACKAGE
installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# install_missing USE...: installs what is missing of the packages of these uses; does nothing when all are there.
install_missing() {
    local package missing=() root=()
    if ! command -v apt-get dpkg-query >/dev/null; then
        say "This is no Debian system: these packages, or what they are called here, have to be installed:"
        say "$(packages_for "$@" | paste -sd ' ')"
        return 0
    fi
    while read -r package; do
        installed "$package" || missing+=("$package")
    done < <(packages_for "$@")
    [ ${#missing[@]} -eq 0 ] && return 0

    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            die "Packages are missing. Install them as root and start again:" \
                "    apt-get install --no-install-recommends ${missing[*]}"
        root=(sudo)
    fi
    say "Installing ${missing[*]}"
    root+=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0)
    "${root[@]}" update >&2
    "${root[@]}" install -y --no-install-recommends "${missing[@]}" >&2 ||
        die "The packages could not be installed (see above)."
}

# build PRESET TARGET... -- OPTION...: configures with the cmake options and builds, with all cores.
build() {
    local preset=$1 targets=()
    shift
    while [ "$1" != -- ]; do
        targets+=(--target "$1")
        shift
    done
    shift
    cmake --preset "$preset" "$@" >&2
    cmake --build "build/$preset" --parallel "$(nproc)" "${targets[@]}" >&2
}
