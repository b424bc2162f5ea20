# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by run, test and the other scripts: steps that say what they do and stop with a clear message.

cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD

say() {
    printf '== %s\n' "$*"
}

die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# build PRESET TARGET...: configures once and builds.
build() {
    local preset=$1
    shift
    local log=build/$preset-build.log
    mkdir -p build || die "Cannot write below $root: is the disk full or read-only?"
    say "Building ($preset); the first time takes some minutes. Details: $log"
    if ! { cmake --preset "$preset" && cmake --build "build/$preset" --target "$@"; } >"$log" 2>&1; then
        grep -E 'error|Error|FAILED|No space left' "$log" | head -n 20 >&2
        tail -n 15 "$log" >&2
        die "The build failed: see above and $log."
    fi
}

# The command that gives what follows it a virtual display.
virtual_display=(xvfb-run -a -s "-screen 0 1280x800x24")
