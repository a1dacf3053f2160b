# Sourced by the scripts at the root: sees to it that the Debian packages they need are there.

# need_packages package:"what for"...: installs what is missing, after saying what and why. Fails if it cannot.
need_packages()
{
    local entry installed missing=() as_root=() log
    if ! command -v dpkg-query > /dev/null; then
        echo "This is no Debian system, so please see to it that there is:"
        printf '  %s\n' "${@/:/: }"
        return
    fi

    installed=$(dpkg-query -W -f='<${Package} ${db:Status-Status}>' "${@%%:*}" 2> /dev/null)
    for entry; do
        [[ $installed == *"<${entry%%:*} installed>"* ]] || missing+=("$entry")
    done
    [ ${#missing[@]} -eq 0 ] && return

    echo "These Debian packages are missing and about to be installed:"
    printf '  %s\n' "${missing[@]/:/: }"
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo > /dev/null; then
            echo "Installing takes root, and there is no sudo. As root: apt-get install ${missing[*]%%:*}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends "${missing[@]%%:*}"; } > "$log" 2>&1 < /dev/null; then
        cat "$log" >&2
        rm -f "$log"
        echo "Installing failed. As root: apt-get install ${missing[*]%%:*}" >&2
        return 1
    fi
    rm -f "$log"
}
