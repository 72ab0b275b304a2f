# Sourced by every script: strict mode, the repository as working folder, --help, errors.
# shellcheck shell=bash
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

# fail MESSAGE: ends the script with one line.
fail() {
    echo "${0##*/}: $*" >&2
    exit 1
}

# help_of "$@": prints the comment at the top of the running script when asked with --help or -h.
help_of() {
    local argument
    for argument in "$@"; do
        case "$argument" in
            --help | -h)
                sed -n '2,/^[^#]/{s/^# \{0,1\}//p}' "$script"
                exit 0
                ;;
        esac
    done
}

# preset_of NAME PRESET...: ends the script unless NAME is one of the presets.
preset_of() {
    local name=$1 preset
    shift
    for preset in "$@"; do
        [[ $name == "$preset" ]] && return
    done
    fail "no preset '$name': one of $* (see --help)"
}
