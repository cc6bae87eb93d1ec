# shellcheck shell=bash disable=SC2034
# Shared by the scripts: packages, building, log files. Sourced by bash from the project's root folder.

set -u -o pipefail

packages=(g++ cmake ninja-build pkg-config libgtest-dev nlohmann-json3-dev qt6-base-dev qt6-tools-dev libqt6opengl6-dev libwmf-dev libmosquitto-dev mdbtools-dev mdbtools mosquitto openssl
          python3 python3-pil xvfb fonts-dejavu-core fonts-wqy-microhei)
sanitizer_packages=(clang lld)
lint_packages=(clang clang-format clang-tidy)
logs=build/logs

# The tools of the system come first: a python3 from elsewhere does not know the installed packages.
export PATH="/usr/bin:/bin:$PATH"
export CMAKE_BUILD_PARALLEL_LEVEL="${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}"

fail()
{
    printf '%s\n' "$*" >&2
    exit 1
}

# run_logged NAME COMMAND...: output goes to build/logs/NAME.log, its end is shown when the command fails.
run_logged()
{
    local log="$logs/$1.log"
    shift
    mkdir -p "$logs"
    "$@" > "$log" 2>&1 && return 0
    local status=$?
    printf '\nFailed: %s\nThe end of %s:\n\n' "$*" "$log" >&2
    # The compiler's own words matter more than what the other jobs printed after them.
    if grep -qE '(error|Error):|FAILED:' "$log"; then
        grep -E -m 20 -A 4 '(error|Error):|FAILED:' "$log" | head -n 60 >&2
        printf '...\n' >&2
    fi
    tail -n 25 "$log" >&2
    return $status
}

# Prints the given packages that are not installed.
missing_packages()
{
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2> /dev/null)" = installed ] || printf '%s\n' "$package"
    done
}

# install_packages PACKAGE...: installs what is missing; silent when nothing is.
install_packages()
{
    if ! command -v dpkg-query > /dev/null || ! command -v apt-get > /dev/null; then
        printf 'No Debian packages here. Needed are the counterparts of:\n  %s\nTrying with what is there.\n' "$*" >&2
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo > /dev/null || { ! [ -t 0 ] && ! sudo -n true 2> /dev/null; }; then
            fail "These packages are missing and only an administrator can install them:

    apt-get install --no-install-recommends ${missing[*]}"
        fi
        printf 'Installing needs administrator rights (sudo).\n'
        as_root=(sudo)
        sudo -v || fail "No administrator rights. Please install: ${missing[*]}"
    fi
    printf 'Installing %s\n' "${missing[*]}"
    # A stale or partly unreachable package source need not matter; the installation decides.
    run_logged packages-update "${as_root[@]}" apt-get update || printf 'Going on without the newest package lists.\n' >&2
    run_logged packages-install "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}" < /dev/null \
        || fail "The packages could not be installed: ${missing[*]}"
}

# build PRESET [TARGET...]: configures and builds; without targets everything.
build()
{
    local preset="$1"
    shift
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    local start=$SECONDS
    printf 'Building %s (output in %s/build-%s.log)\n' "$preset" "$logs" "$preset"
    run_logged "configure-$preset" cmake --preset "$preset" || return 1
    run_logged "build-$preset" cmake --build --preset "$preset" "${targets[@]}" || return 1
    printf 'Built %s in %s s\n' "$preset" $((SECONDS - start))
}

# run_tests PRESET [ctest arguments]: shows failures and ctest's closing lines, not every passed case.
run_tests()
{
    local preset="$1"
    shift
    mkdir -p "$logs"
    printf 'Testing %s (output in %s/test-%s.log)\n' "$preset" "$logs" "$preset"
    # Twice as many at a time as there are processors: many wait for a clock or another process.
    ctest --preset "$preset" --parallel $((2 * CMAKE_BUILD_PARALLEL_LEVEL)) "$@" 2>&1 | tee "$logs/test-$preset.log" \
        | sed -u -E '/^ +Start +[0-9]+: /d; /^ *[0-9]+\/[0-9]+ Test +#[0-9]+: .* Passed +[0-9.]+ sec$/d'
}
