# Sourced by the scripts at the root, after building.sh: sees to it that the Debian packages they need are there.

# need_packages package:"what for"...: installs what is missing, after saying what and why. Fails if it cannot.
need_packages()
{
    local entry installed missing=() as_root=() by_hand
    if ! command -v dpkg-query > /dev/null; then
        echo "This is no Debian system, so please see to it that there is:" >&2
        printf '  %s\n' "${@/:/: }" >&2
        return
    fi

    installed=$(dpkg-query -W -f='<${Package} ${db:Status-Status}>' "${@%%:*}" 2> /dev/null)
    for entry; do
        [[ $installed == *"<${entry%%:*} installed>"* ]] || missing+=("$entry")
    done
    [ ${#missing[@]} -eq 0 ] && return

    echo "These Debian packages are missing:" >&2
    printf '  %s\n' "${missing[@]/:/: }" >&2
    by_hand="As root: apt-get install ${missing[*]%%:*}"
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo > /dev/null; then
            echo "Installing them takes root, and there is no sudo. $by_hand" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    install_packages "${missing[@]%%:*}" && return
    echo "Installing them failed. $by_hand" >&2
    return 1
}

# Installs packages by the command in as_root, or prints what went wrong.
install_packages()
{
    local log label="Installing them and what they need" status
    log=$(mktemp) || return
    # By itself, as sudo may ask for the password.
    echo "Looking where to get them." >&2
    "${as_root[@]}" apt-get update > "$log" 2>&1 < /dev/null \
        && run_logged "$log" "$label" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends -o APT::Status-Fd=1 "$@" >&2
    status=$?
    echo >&2
    [ $status -eq 0 ] || grep -av '^[dp][lm]status:' "$log" >&2
    rm -f "$log"
    return $status
}
