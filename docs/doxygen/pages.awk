# What Doxygen is to read of a page. It would take the "%" of "%s" for a sign of its own, and finds no page whose path has
# a blank, so links between pages become references. In the tree of pages "libwidget" is all of them.

function labelOf(path,    inGuide, name) {
    inGuide = path ~ /guide\/[^\/]*$/ || (path !~ /\// && FILENAME ~ /\/guide\/[^\/]*$/)
    name = tolower(path)
    sub(/.*\//, "", name)
    sub(/\.md$/, "", name)
    return inGuide && name != "guide" ? "guide_" name : name
}

FNR == 1 {
    if (FILENAME ~ /\/README\.md$/)
        sub(/libwidget/, "README")
    if (!/\{#/)
        $0 = $0 " {#" labelOf(FILENAME) "}"
}

{
    gsub(/%[sdu]/, "%&")
    while (match($0, /\[[^][]*\]\([^()]*\.md\)/)) {
        split(substr($0, RSTART + 1, RLENGTH - 2), part, /\]\(/)
        $0 = substr($0, 1, RSTART - 1) "\\ref " labelOf(part[2]) " \"" part[1] "\"" substr($0, RSTART + RLENGTH)
    }
    print
}
