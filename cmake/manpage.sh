#!/usr/bin/env bash
# Makes a page for man of what a program says with --help.
#
#   manpage.sh PROGRAM NAME VERSION PAGE
#
# NAME is what the program is called once it is installed. PAGE is written compressed.

set -eu -o pipefail
program=$(realpath "$1")
name=$2
version=$3
page=$4

( exec -a "$name" "$program" --help ) | awk -v name="$name" -v version="$version" '
    # Quotes what troff would take for a request or for a hyphen.
    function plain(text)
    {
        gsub(/\\/, "\\e", text)
        gsub(/-/, "\\-", text)
        return text ~ /^[.\047]/ ? "\\\\&" text : text
    }

    NR == 1 {
        summary = $0
        sub(/:.*/, "", summary)
        description = $0
        print ".TH " toupper(name) " 1 \"\" \"libwidget " version "\" \"User commands\""
        print ".SH NAME\n" plain(name) " \\- " tolower(substr(summary, 1, 1)) plain(substr(summary, 2))
        next
    }
    /^Usage: / {
        sub(/^Usage: [^ ]* */, "")
        print ".SH SYNOPSIS\n.B " plain(name) "\n" plain($0)
        print ".SH DESCRIPTION\n" plain(description)
        next
    }
    /^  --/ {
        if (!options++)
            print ".SH OPTIONS"
        option = $1
        rest = substr($0, index($0, $1) + length($1) + 1)
        value = ""
        if (match(rest, /^[A-Z]+ /)) {
            value = " \\fI" substr(rest, 1, RLENGTH - 1) "\\fR"
            rest = substr(rest, RLENGTH + 1)
        }
        sub(/^ +/, "", rest)
        print ".TP\n.B " plain(option) value "\n" plain(rest)
        next
    }
    /^   / {
        sub(/^ +/, "")
        print plain($0)
        next
    }
    /^$/ {
        if (options && !notes++)
            print ".SH NOTES"
        next
    }
    { print plain($0) }
' | gzip -9n > "$page.new"
mv "$page.new" "$page"
