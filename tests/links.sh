#!/usr/bin/env bash
# Follows every link of the HTML pages in a directory: none may lead nowhere, and no page may fetch anything from elsewhere.
#
#   tests/links.sh DIRECTORY

set -u
cd "$1" || exit 2
failed=0
complain() { echo "$1"; failed=1; }

[ -s index.html ] || complain "There is no index.html."
# What a page fetches, it fetches by src, or by href in a link element.
while IFS=: read -r page what; do
    complain "$page fetches $what"
done < <(grep -oHE '(src="(https?:)?//[^"]*"|<link [^>]*href="(https?:)?//[^"]*")' ./*.html)

# Doxygen does not always warn of what it does not understand.
while IFS=: read -r page what; do
    complain "$page shows \"$what\"."
done < <(grep -oHE '(@|\\)(ref|snippet|include|image|subpage) |&lt;/?(tt|h[1-6]|table|td)&gt;|\*\*<a |</a>\*\*' ./*.html)

while IFS= read -r line; do
    page=${line%%:*}
    link=${line#*=\"}
    link=${link%\"}
    file=${link%%#*}
    if [ -n "$file" ] && [ ! -e "$file" ]; then
        complain "$page: there is no \"$file\"."
    elif [[ $link == *?#?* ]] && ! grep -qE "(id|name)=\"${link#*#}\"" "$file"; then
        complain "$page: there is no place \"${link#*#}\" in \"$file\"."
    fi
done < <(grep -oHE '(src|href)="[^"]*"' ./*.html | grep -vE '="(https?:|javascript:|mailto:|#)' | sort -u -t= -k2)
exit $failed
