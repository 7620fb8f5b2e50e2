# Shows Doxygen the comments of the headers, which are plain ones: the first block of a file is that of the file, a block
# right above a declaration belongs to it, and so does one after it.

# The text as it stands, without Doxygen's commands, links and tags.
function plain(text) {
    gsub(/[\\@<>&#%]/, "\\\\&", text)
    gsub(/[A-Za-z_]+::/, "%&", text)
    return text
}

# Ends the block of comment lines that was being read.
function endBlock(line,    i) {
    for (i = 1; i <= lines; ++i) {
        print lead (line ~ /^ *$/ && !isHead ? "//" : "///") block[i]
    }
    isHead = 0
    lines = 0
}

FNR == 1 {
    isHead = 1
    print "/// \\file"
}
/^ *\/\// {
    lead = $0
    sub(/\/\/.*/, "", lead)
    block[++lines] = plain(substr($0, length(lead) + 3))
    next
}
{ endBlock($0) }
/[;,{] *\/\/ / {
    match($0, /[;,{] *\/\/ /)
    print substr($0, 1, RSTART) " ///< " plain(substr($0, RSTART + RLENGTH))
    next
}
{ print }
