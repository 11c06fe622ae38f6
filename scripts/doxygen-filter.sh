#!/bin/sh
# Doxygen's input filter for the public headers: reads a header as its
# developers write it (plain // and /* */ comments, as the house style has
# them) and hands Doxygen the same text with those comments as documentation.
#   - the comment that opens the file becomes the file's description, placed
#     in its subsystem's group (the folder name: config, paths, ...);
#   - a comment on lines of its own documents what follows it, unless a blank
#     line follows it, or it is a short first line without a full stop over
#     more comment (both are section headings);
#   - a // comment after code on the same line (and the comment lines
#     right under it) documents that line's member;
#   - a comment over several forms of one function (overloads, or a run of
#     operators, up to the next blank line) documents each of them;
#   - comment lines indented by two spaces or more (examples, tables) stay as they are;
#   - Doxygen's special characters inside comments are escaped, so that
#     paths such as Software\Tarn-Holmvik and tags such as <$LibsDir> show as
#     they stand.
# Usage (by Doxygen): doxygen-filter.sh HEADER
file=$1
group=$(basename "$(dirname "$file")")
[ "$group" = include ] && group=capi

awk -v group="$group" '
# Output is kept until the end, so that a comment followed by several forms
# of one function (a buffer form and its CString overload, the forms of one
# member) can make them one member group: Doxygen then gives every form the
# comment.
function put(line) { out[++n] = line }
function finish_chunk() {
    if (chunk && declarations >= 2 && !unbalanced && !mixed && name != "") {
        group_open[first] = indent; group_close[last] = indent
    }
    chunk = 0; commenting = 0
}
function escape(text) {
    gsub(/\\/, "\\\\\\\\", text)
    gsub(/[@<>&#%$]/, "\\\\&", text)
    return text
}
# One line of a comment after its lead (/// or " * "): indented lines are
# kept verbatim, the rest escaped.
function emit(lead, text) {
    if (text ~ /^  / && !verbatim) { put(lead "\\verbatim"); verbatim = 1 }
    if (text !~ /^  / && verbatim) { put(lead "\\endverbatim"); verbatim = 0 }
    put(lead (verbatim ? text : escape(text)))
}
function end_verbatim(lead) {
    if (verbatim) { put(lead "\\endverbatim"); verbatim = 0 }
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
    put("/** \\file"); put(" *  \\ingroup " group)
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
    if (opened) { end_verbatim(" *  "); put(" */") }
    state = "body"
}

# A /* */ comment over several lines.
state == "block" {
    if ($0 ~ /\*\//) {
        text = $0; sub(/[ \t]*\*\/.*/, "", text); sub(/^[ \t]*\*? ?/, "", text)
        if (text != "") emit(" *  ", text)
        end_verbatim(" *  "); put(" */"); state = "body"; next
    }
    text = $0; sub(/^[ \t]*\*? ?/, "", text); emit(" *  ", text)
    next
}
/^[ \t]*\/\*/ && !/\*\// {
    text = $0; sub(/^[ \t]*\/\* ?/, "", text)
    put("/**"); if (text != "") emit(" *  ", text); state = "block"
    next
}
/^[ \t]*\/\*.*\*\/[ \t]*$/ {
    indent = $0; sub(/\/\*.*/, "", indent)
    text = $0; sub(/^[ \t]*\/\* ?/, "", text); sub(/ ?\*\/[ \t]*$/, "", text)
    put(indent "/** " escape(text) " */"); single = n
    next
}

# Comments on lines of their own, and after code.
/^[ \t]*\/\/ ?/ && trailing {
    text = $0; sub(/^[ \t]*\/\/ ?/, "", text)
    lead = $0; sub(/\/\/.*/, "", lead)
    put(lead "///< " escape(text))
    next
}
/^[ \t]*\/\/ ?/ {
    if (!commenting) {
        finish_chunk()
        commenting = 1; first = n + 1
        indent = $0; sub(/\/\/.*/, "", indent)
    }
    lead = indent "/// "
    text = $0; sub(/^[ \t]*\/\/ ?/, "", text)
    # A short first line without a full stop over a longer comment is the
    # heading of a section ("Operations on the file"), not part of the text.
    if (n == first && heading) { sub(/\/\/\/ ?/, "// ", out[n]); first = n + 1 }
    heading = (n + 1 == first && text ~ /^[A-Z][A-Za-z ,\x27-]*$/ && length(text) < 40)
    emit(lead, text)
    next
}
/^[ \t]*$/ && (commenting || single == n) {
    # A comment with a blank line under it documents nothing: a heading.
    end_verbatim(lead)
    if (commenting) for (i = first; i <= n; i++) sub(/\/\/\/ ?/, "// ", out[i])
    else sub(/\/\*\* /, "/* ", out[n])
    commenting = 0
}
/^[ \t]*$/ || /^[ \t]*#/ || /^[ \t]*(public|protected|private):/ {
    end_verbatim(lead); finish_chunk(); trailing = 0
    if ($0 !~ /^[ \t]*#/) { put($0); next }
}
{
    end_verbatim(lead)
    if (commenting) { commenting = 0; chunk = 1; declarations = 0; depth = 0; unbalanced = 0; name = ""; mixed = 0 }
    line = $0
    if (chunk && depth == 0 && match(line, /operator[^(]*\(|[A-Za-z_~][A-Za-z0-9_]*[ \t]*\(/)) {
        declared = substr(line, RSTART, RLENGTH); sub(/[ \t]*\($/, "", declared)
        if (declared ~ /^operator/) declared = "operator"
        if (name == "") name = declared
        else if (declared != name) mixed = 1
    }
    at = comment_start(line)
    if (at > 1 && substr(line, 1, at - 1) ~ /[^ \t]/) {
        text = substr(line, at + 2); sub(/^ +/, "", text)
        line = substr(line, 1, at - 1)
        put(line "///< " escape(text))
        trailing = 1
    } else if (match(line, /[^ \t][ \t]*\/\*.*\*\/[ \t]*$/)) {
        text = substr(line, RSTART + 1); sub(/^[ \t]*\/\* ?/, "", text); sub(/ ?\*\/[ \t]*$/, "", text)
        put(substr(line, 1, RSTART) " /**< " escape(text) " */")
        trailing = 0
    } else {
        put(line)
        trailing = 0
    }
    if (chunk) {
        opens = gsub(/\{/, "{", line); closes = gsub(/\}/, "}", line)
        depth += opens - closes
        if (depth != 0) unbalanced = 1
        if (depth == 0 && line ~ /[;}][ \t]*$/) { declarations++; last = n }
    }
}
END {
    if (opened && state == "banner") { end_verbatim(" *  "); put(" */") }
    finish_chunk()
    for (i = 1; i <= n; i++) {
        if (i in group_open) print group_open[i] "///@{"
        print out[i]
        if (i in group_close) print group_close[i] "///@}"
    }
}
' "$file"
