# Makes the comments of our headers Doxygen's: a block of // lines belongs to what
# stands below it, up to the next empty line; the first block of a file is the
# file's. Indented lines are shown as they are, and nothing in a comment is a
# command.
function prose(text) {
    gsub(/[\\@&$#<>%]/, "\\\\&", text)
    while (sub(/`/, "<code>", text) && sub(/`/, "</code>", text)) {
    }
    return text
}

function flush_comment(    i, shown) {
    for (i = 1; i <= lines; i++) {
        if (comment[i] ~ /^   *[^ ]/ && !shown) {
            print margin "/// @code{.unparsed}"
            shown = 1
        } else if (comment[i] !~ /^   *[^ ]/ && shown && comment[i] != "") {
            print margin "/// @endcode"
            shown = 0
        }
        print margin "///" (shown ? comment[i] : prose(comment[i]))
    }
    if (shown) {
        print margin "/// @endcode"
    }
}

# A heading between groups of operations is nothing's documentation.
/^ *\/\/ ---- / { print ""; lines = 0; next }

/^ *\/\// {
    if (!inside) {
        lines = 0
        inside = 1
    }
    match($0, /^ */)
    margin = substr($0, 1, RLENGTH)
    comment[++lines] = substr($0, RLENGTH + 3)
    next
}

{
    if (inside) {
        inside = 0
        if (!seen_any) {
            seen_any = 1
            print "/// @file"
            flush_comment()
            print ""
            lines = 0
        } else if ($0 != "") {
            flush_comment()
        } else {
            lines = 0
        }
    } else if ($0 == "" || $0 ~ /^ *[}]/) {
        lines = 0
    } else if (ended && lines > 0) {
        flush_comment()
    }
    # What is behind an opening brace is documented by itself.
    if ($0 ~ /[{:]$/) {
        lines = 0
    }
    ended = $0 ~ /[;}] *(\/\/.*)?$/ || $0 ~ /^#define .*[^\\]$/
    # A comment behind a member is the member's.
    if (match($0, /; +\/\/ /)) {
        $0 = substr($0, 1, RSTART) "  ///< " prose(substr($0, RSTART + RLENGTH))
    } else if (match($0, /, +\/\/ /)) {
        $0 = substr($0, 1, RSTART) "  ///< " prose(substr($0, RSTART + RLENGTH))
    }
    print
}
