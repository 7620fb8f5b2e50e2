# Shows Doxygen the comments of the headers, which are plain ones: the first block of a file is that of the file, others
# belong to the declaration below them, and those behind a declaration to that declaration.

# The text as it stands, without Doxygen's commands, links and tags.
function plain(text) {
    gsub(/[\\@<>&#%]/, "\\\\&", text)
    gsub(/::/, "\\::", text)
    return text
}

/^ *\/\// {
    at = index($0, "//")
    lead = substr($0, 1, at - 1)
    if (FNR == 1) {
        print "/// \\file"
    }
    print lead "///" plain(substr($0, at + 2))
    next
}
/[;,{] *\/\/ / && !/"[^"]*\/\// {
    at = index($0, "// ")
    print substr($0, 1, at - 1) "///< " plain(substr($0, at + 3))
    next
}
{ print }
