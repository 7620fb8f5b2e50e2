# Shows Doxygen the comments of the headers, which are plain ones: the first block of a file is that of the class that it
# begins with, as in "CSurface: ...", or else of the file; a block right above a declaration belongs to it, and so does one after
# it. All of a header is in the group of its task.
BEGIN {
    split("surface.h surfaceAttributes.h surfaceTextChunk.h dskParam.h", names)
    for (i in names) groups[names[i]] = "drawing_calls"
    split("surfaceSVG.h surfacePSPrinter.h surfaceGDI.h surfaceEMF.h surfaceHdc.h surfacePicture.h", names)
    for (i in names) groups[names[i]] = "back_ends"
    split("metaFilePlayer.h metaFilePlayerSVG.h metaFilePlayerEMF.h pageHits.h", names)
    for (i in names) groups[names[i]] = "stored_pages"
    groups["gdidevice.h"] = "devices"
    groups["surfacePages.h"] = "short_forms"
    split("moduleUse.h moduleVersion.h krnos.h krnutil.h errorNumbers.h", names)
    for (i in names) groups[names[i]] = "hosts"
    split("tovostr.h tovoarray.h moduleObject.h recordReader.h surfaceExport.h", names)
    for (i in names) groups[names[i]] = "containers"
}

# The text as it stands, without Doxygen's commands, links and tags.
function plain(text) {
    gsub(/[\\@<>&#%]/, "\\\\&", text)
    gsub(/[A-Za-z_]+::/, "%&", text)
    return text
}

# Ends the block of comment lines that was being read.
function endBlock(line,    i, name) {
    if (isHead && lines > 0) {
        name = block[1]
        if (sub(/:.*/, "", name) && name ~ /^ *[A-Z][A-Za-z]+$/) {
            gsub(/ /, "", name)
            sub(/^ *[A-Za-z]+: /, " ", block[1])
            print "/// What " name " is declared in."
            print ""
            print "/// \\class " name
            block[1] = " " toupper(substr(block[1], 2, 1)) substr(block[1], 3)
        }
    }
    for (i = 1; i <= lines; ++i) {
        print lead (line ~ /^ *$/ && !isHead ? "//" : "///") block[i]
    }
    if (isHead) {
        print ""
        print "/// \\addtogroup " (file in groups ? groups[file] : "no_task")
        print "/// @{"
        print ""
    }
    isHead = 0
    lines = 0
}

FNR == 1 {
    isHead = 1
    file = FILENAME
    sub(/.*\//, "", file)
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
END { print "/// @}" }
