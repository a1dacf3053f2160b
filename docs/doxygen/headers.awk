# What Doxygen is to read in a header. A function that follows another one without an empty line shares its comment, a
# colour such as #474242 is no link, and each class leads to its page.

{ gsub(/\(#/, "(\\#") }

/^ *\/\/\// {
    comment = inComment ? comment "\n" $0 : $0
    inComment = 1
    print
    next
}

/^class WIDGET_EXPORT / {
    print "///\n/// \\ref " tolower($3) " \"What it looks like, with the code of each picture\""
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
