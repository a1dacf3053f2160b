# What Doxygen is to read in a header. A function that follows another one without an empty line shares its comment, and
# a colour such as #474242 is no link.

{ gsub(/\(#/, "(\\#") }

/^ *\/\/\// {
    comment = inComment ? comment "\n" $0 : $0
    inComment = 1
    print
    next
}

{
    if (/^    [A-Za-z].*\(/ && !/~/) {
        if (!inComment && comment != "")
            print comment
    } else if (!/~/) {
        comment = ""
    }
    inComment = 0
    print
}
