# Writes to the file `output` a C++ source with the examples of the given guides (*.md) and headers (*.h), each in a function of its own, or at the level
# of the file if it begins with a class or with the definition of a member function.

function finish(    i, line, level, depth, file) {
    if (!inside)
        return
    inside = 0
    ++count
    file = FILENAME
    level = "file"
    text = ""
    for (i = 1; i <= lines; ++i) {
        line = code[i]
        if (line ~ /^#include/) {
            includes = includes line "\n"
            line = ""
        }
        if (level != "function" && line != "" && !isOfFile(line, level)) {
            text = text "struct Example" count " : Application { void run(); };\nvoid Example" count "::run()\n{\n#line " (start + i - 1) " \"" file "\"\n"
            level = "function"
        } else if (level == "file" && line != "" && line !~ /^\/\//) {
            level = "definition"
        }
        text = text line "\n"
        if (level == "definition" && line ~ /^}/)
            level = "file"
    }
    if (level == "function")
        text = text "}\n"
    name = text ~ /int main\(/ || text ~ /NameDelegate::/ ? "" : "example" count
    if (name != "")
        text = "namespace " name " {\n#line " start " \"" file "\"\n" text "}\n"
    else
        text = "#line " start " \"" file "\"\n" text
    examples = examples text
}

# Returns whether a line belongs to a definition at the level of the file.
function isOfFile(line, level) {
    return level == "definition" || line ~ /^(class|struct|int main) ?/ || line ~ /^[A-Za-z]+[*&]? [A-Za-z]+::[A-Za-z]+\(/ || line ~ /^\/\//
}

function add(line) {
    sub(/^ *Q_OBJECT$/, "", line)  # no moc runs here
    code[++lines] = line
}

function begin() {
    inside = 1
    lines = 0
    start = FNR
}

FNR == 1 {
    finish()
    isGuide = FILENAME ~ /\.md$/
    if (!isGuide) {
        header = FILENAME
        sub(/.*common\/src\//, "", header)
        includes = includes "#include \"" header "\"\n"
    }
}

isGuide && /^```cpp$/ { begin(); ++start; next }
isGuide && /^```$/ { finish(); next }
isGuide { if (inside) add($0); next }

/^ *\/\/\/?     / {
    if (!inside)
        begin()
    line = $0
    sub(/^ *\/\/\/?     /, "", line)
    add(line)
    next
}
/^ *\/\/\/?$/ && inside { add(""); next }
{ finish() }

END {
    finish()
    if (count < 40) {
        print "#error \"only " count " examples were found\"" >output
        exit
    }
    print includes "#include \"Application.h\"\n" examples >output
}
