# Sourced by ./simulate for --browser: shows the simulator on a web page of this PC.
#
# The simulator's window fills the display of an X server of its own. That one is a VNC server too, and listens on a
# socket in a directory that nobody else may enter. Only the page's server listens on the network, and only for this PC.

browser_packages=(
    tigervnc-standalone-server:"the display that the page shows"
    tigervnc-tools:"the password of the page"
    websockify:"the server of the page"
    novnc:"what the page is made of"
)
browser_port=6080
browser_arguments=()
browser_has_tools=no
size_with_tools=1280x800

browser_complain() { echo "$0: --browser: $*" >&2; }

# take_browser_option <argument>...: takes --browser and its port out, and leaves the others in browser_arguments.
take_browser_option()
{
    while [ $# -gt 0 ]; do
        case $1 in
        --browser)
            if [ $# -gt 1 ] && [[ $2 != -* ]]; then
                take_port "$2" || return
                shift
            fi
            ;;
        --browser=*) take_port "${1#*=}" || return ;;
        --with-tools | --full-screen) browser_has_tools=yes ;;
        --picture | --picture=* | --tour | --tour=* | --list-screens)
            echo "$0: --browser and ${1%%=*} do not go together. Nothing opens a window for a browser then." >&2
            return 1
            ;;
        *) browser_arguments+=("$1") ;;
        esac
        shift
    done
    if [ $browser_has_tools = yes ] && [[ " ${browser_arguments[*]} " == *" --device-only "* ]]; then
        browser_complain "the tools and --device-only do not go together. Leave one of them out."
        return 1
    fi
}

take_port()
{
    if [[ ! $1 =~ ^[1-9][0-9]{0,4}$ ]] || [ "$1" -gt 65535 ]; then
        browser_complain "There is no port \"$1\". Ports go from 1 to 65535; without one it is $browser_port."
        return 1
    fi
    browser_port=$1
}

# Fails if the page's server could not listen.
need_port()
{
    local reason
    reason=$(python3 - "$browser_port" 2>&1 << 'SCRIPT'
import socket, sys
server = socket.socket()
server.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
try:
    server.bind(("127.0.0.1", int(sys.argv[1])))
    server.listen()
except OSError as error:
    sys.exit(error.strerror)
SCRIPT
    ) && return
    browser_complain "port $browser_port cannot be used: $reason. Name another one: $0 --browser $(another_port)"
    return 1
}

another_port() { echo $((browser_port < 1024 || browser_port > 65000 ? 6080 : browser_port + 1)); }

# serve_in_browser <simulator> <argument>...: returns the status of the simulator when it has ended, or 1 when
# something else has. Ends the script on a signal. Either way nothing is left.
serve_in_browser()
{
    local simulator=$1 size=$size_with_tools status
    shift
    # A window takes 2 and a picture 1 if no zoom is given.
    set -- "$([ $browser_has_tools = yes ] && echo --full-screen || echo --device-only)" --zoom 2 "$@"
    servants=()
    display=
    place=$(mktemp -d) || return
    trap clean_up EXIT
    trap 'exit 129' HUP
    trap 'exit 130' INT
    trap 'exit 143' TERM

    # The toolkit wants one, and would leave it behind.
    if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
        export XDG_RUNTIME_DIR=$place/runtime
        mkdir -m 700 "$XDG_RUNTIME_DIR"
    fi

    # The picture tells how large the window will be. Arguments that are wrong end here.
    leave_out_record "$@"
    (exec -a "$0" "$simulator" "${arguments_of_picture[@]}" --keys wait:0 --with-keys --picture "$place/window.png") \
        || return
    [ $browser_has_tools = yes ] || size=$(size_of "$place/window.png")
    start_display "$size" || return
    start TERM env -u WAYLAND_DISPLAY DISPLAY="$display" XAUTHORITY="$place/authority" QT_QPA_PLATFORM=xcb \
        "$simulator" "$@"
    shown=$!
    start_page_server || return

    echo "The device is at http://127.0.0.1:$browser_port/#$password"
    echo "To see it on another computer, run there first:" \
        "ssh -L $browser_port:127.0.0.1:$browser_port ${USER:-$(id -un)}@$(uname -n)"
    echo "Ctrl-C ends it."
    # One that was killed is told of below, in better words than the shell's.
    while all_are_running; do
        wait -n 2> /dev/null
    done
    is_running "$display_server" || ended_too_soon "the X server" display
    is_running "$page_server" || ended_too_soon "the page's server" page
    wait "$shown" 2> /dev/null
    status=$?
    [ $status -le 128 ] || browser_complain "signal $((status - 128)) has ended the simulator."
    return $status
}

# leave_out_record <argument>...: leaves in arguments_of_picture what does not take a person at the keys.
leave_out_record()
{
    arguments_of_picture=()
    while [ $# -gt 0 ]; do
        case $1 in
        --record) [ $# -lt 2 ] || shift ;;
        --record=*) ;;
        *) arguments_of_picture+=("$1") ;;
        esac
        shift
    done
}

# start_display <size>: leaves its name in "display", and in "password" what the page needs to see it.
start_display()
{
    password=$(head -c 512 /dev/urandom | LC_ALL=C tr -dc a-zA-Z0-9)
    password=${password:0:8}
    tigervncpasswd -f <<< "$password" > "$place/password" || return
    # Also among those who work on this PC, only the simulator may open windows and listen to keys there: a cookie for
    # any display.
    { printf '\377\377\0\0\0\0\0\022MIT-MAGIC-COOKIE-1\0\020' && head -c 16 /dev/urandom; } > "$place/authority"

    start TERM Xtigervnc -displayfd 3 -geometry "$1" -depth 24 -auth "$place/authority" -nolisten tcp \
        -rfbport -1 -rfbunixpath "$place/vnc" -rfbunixmode 0600 -SecurityTypes VncAuth -PasswordFile "$place/password" \
        3> "$place/display.number" > "$place/display.log" 2>&1
    display_server=$!
    until [ -s "$place/display.number" ]; do
        is_running "$display_server" || ended_too_soon "the X server" display
        sleep 0.05
    done
    display=:$(< "$place/display.number")
}

start_page_server()
{
    mkdir "$place/page"
    ln -s "$root/simulator/browser/index.html" "$root/simulator/resources/device.png" \
        /usr/share/novnc/core /usr/share/novnc/vendor "$place/page"
    # It may lose a signal that asks it to end while it takes a connection. SIGKILL does not ask.
    start KILL websockify --web "$place/page" --unix-target "$place/vnc" "127.0.0.1:$browser_port" \
        > "$place/page.log" 2>&1
    page_server=$!
    until (: 3<> "/dev/tcp/127.0.0.1/$browser_port") 2> /dev/null; do
        is_running "$page_server" || ended_too_soon "the page's server" page
        sleep 0.05
    done
}

# start <signal> <command>...: starts a command that is there as long as this script is; if that is killed, the signal
# ends it. In a group of its own it gets no Ctrl-C: clean_up has an order.
start()
{
    set -m
    setpriv --pdeathsig "$@" < /dev/null &
    set +m
    servants=($! "${servants[@]}")
}

is_running() { kill -0 "$1" 2> /dev/null; }
all_are_running() { is_running "$display_server" && is_running "$page_server" && is_running "$shown"; }

ended_too_soon()
{
    browser_complain "$1 has ended."
    grep . "$place/$2.log" | tail -n 5 | sed 's/^ */    /' >&2
    exit 1
}

clean_up()
{
    local group
    trap '' HUP INT TERM
    for group in "${servants[@]}"; do
        end_group "$group"
    done
    forget_display
    rm -rf "$place"
}

# By force if it does not listen.
end_group()
{
    local tries=100
    kill -s TERM -- "-$1" 2> /dev/null
    while kill -0 -- "-$1" 2> /dev/null; do
        if ((--tries == 0)); then
            kill -s KILL -- "-$1"
            return
        fi
        sleep 0.05
    done
}

# An X server that was killed leaves its socket, unless the next one has it already.
forget_display()
{
    local socket=/tmp/.X11-unix/X${display#:}
    if [ -n "$display" ] && ! grep -q " $socket\$" /proc/net/unix; then
        rm -f "$socket"
    fi
}

# size_of <PNG file>: prints width and height as an X server wants them.
size_of()
{
    local bytes
    read -r -a bytes < <(od -An -tu1 -j16 -N8 "$1")
    echo "$((bytes[2] << 8 | bytes[3]))x$((bytes[6] << 8 | bytes[7]))"
}
