#!/bin/sh
# Doxygen's input filter for the public headers: reads a header as its
# developers write it (plain // and /* */ comments, as the house style has
# them) and hands Doxygen the same text with those comments as documentation.
#   - the comment that opens the file becomes the file's description, placed
#     in its subsystem's group (the folder name: config, paths, ...);
#   - a comment on lines of its own documents what follows it;
#   - a // comment after code on the same line documents that line's member;
#   - comment lines indented by two spaces or more (examples, tables) stay as they are;
#   - Doxygen's special characters inside comments are escaped, so that
#     paths such as Software\Tarn-Holmvik and tags such as <$LibsDir> show as
#     they stand.
# Usage (by Doxygen): doxygen-filter.sh HEADER
file=$1
group=$(basename "$(dirname "$file")")
[ "$group" = include ] && group=capi

awk -v group="$group" '
function escape(text) {
    gsub(/\\/, "\\\\\\\\", text)
    gsub(/[@<>&#%$]/, "\\\\&", text)
    return text
}
# One line of a comment after its lead (/// or " * "): indented lines are
# kept verbatim, the rest escaped.
function emit(lead, text) {
    if (text ~ /^  / && !verbatim) { print lead "\\verbatim"; verbatim = 1 }
    if (text !~ /^  / && verbatim) { print lead "\\endverbatim"; verbatim = 0 }
    print lead (verbatim ? text : escape(text))
}
function end_verbatim(lead) {
    if (verbatim) { print lead "\\endverbatim"; verbatim = 0 }
}
# Position of a // that starts a comment (not inside a string), or 0.
function comment_start(line,    i, c, quoted) {
    quoted = 0
    for (i = 1; i < length(line); i++) {
        c = substr(line, i, 1)
        if (c == "\"" && substr(line, i - 1, 1) != "\\") quoted = !quoted
        else if (!quoted && substr(line, i, 2) == "//") return i
    }
    return 0
}
function open_file_doc() {
    print "/** \\file"; print " *  \\ingroup " group
}
BEGIN { state = "banner" }

# The opening comment, in // or /* */ form.
state == "banner" && /^\/\/ ?/ {
    if (!opened) { open_file_doc(); opened = 1 }
    text = $0; sub(/^\/\/ ?/, "", text); emit(" *  ", text)
    next
}
state == "banner" && /^\/\*/ {
    open_file_doc(); state = "block"
    text = $0; sub(/^\/\* ?/, "", text); if (text != "") emit(" *  ", text)
    next
}
state == "banner" {
    if (opened) { end_verbatim(" *  "); print " */" }
    state = "body"
}

# A /* */ comment over several lines.
state == "block" {
    if ($0 ~ /\*\//) {
        text = $0; sub(/[ \t]*\*\/.*/, "", text); sub(/^[ \t]*\*? ?/, "", text)
        if (text != "") emit(" *  ", text)
        end_verbatim(" *  "); print " */"; state = "body"; next
    }
    text = $0; sub(/^[ \t]*\*? ?/, "", text); emit(" *  ", text)
    next
}
/^[ \t]*\/\*/ && !/\*\// {
    text = $0; sub(/^[ \t]*\/\* ?/, "", text)
    print "/**"; if (text != "") emit(" *  ", text); state = "block"
    next
}
/^[ \t]*\/\*.*\*\/[ \t]*$/ {
    indent = $0; sub(/\/\*.*/, "", indent)
    text = $0; sub(/^[ \t]*\/\* ?/, "", text); sub(/ ?\*\/[ \t]*$/, "", text)
    print indent "/** " escape(text) " */"
    next
}

# Comments on lines of their own, and after code.
/^[ \t]*\/\/ ?/ {
    lead = $0; sub(/\/\/.*/, "", lead); lead = lead "/// "
    text = $0; sub(/^[ \t]*\/\/ ?/, "", text); emit(lead, text)
    next
}
{
    end_verbatim(lead)
    at = comment_start($0)
    if (at > 1 && substr($0, 1, at - 1) ~ /[^ \t]/) {
        text = substr($0, at + 2); sub(/^ +/, "", text)
        print substr($0, 1, at - 1) "///< " escape(text)
        next
    }
    print
}
END { if (opened && state == "banner") { end_verbatim(" *  "); print " */" } }
' "$file"
