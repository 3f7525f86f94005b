# Writes to the file `output` a C++ source with the examples of the given guides (*.md) and headers (*.h). The code of an example is
# in a function of its own. Classes and functions at its beginning stay outside, in a namespace of their own unless they define
# members of the application's classes or main().

function finish(    i, line, level, text, isOfApplication) {
    if (!inside)
        return
    inside = 0
    ++count
    level = "file"
    for (i = 1; i <= lines; ++i) {
        line = code[i]
        if (line ~ /^#include/) {
            includes = includes line "\n"
            line = ""
        }
        isOfApplication = isOfApplication || line ~ /int main\(/ || isMember(line)
        if (level != "function" && line != "" && !isOfFile(line, level)) {
            text = text "struct Example" count " : Application { void run(); };\n" \
                "void Example" count "::run()\n{\n" lineMark(start + i - 1)
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
    if (isOfApplication)
        examples = examples lineMark(start) text
    else
        examples = examples "namespace example" count " {\n" lineMark(start) text "}\n"
}

# Has the compiler report errors at this line of the guide or header.
function lineMark(line) {
    return "#line " line " \"" file "\"\n"
}

# Returns whether a line begins the definition of a member function.
function isMember(line) {
    return line ~ /^[A-Za-z]+[*&]? [A-Za-z]+::[A-Za-z]+\(/
}

# Returns whether a line belongs to a definition outside of functions.
function isOfFile(line, level) {
    return level == "definition" || line ~ /^(class|struct|int main) ?/ || line ~ /^\/\// || isMember(line)
}

function add(line) {
    sub(/^ *Q_OBJECT$/, "", line)  # no moc runs here
    code[++lines] = line
}

function begin() {
    inside = 1
    lines = 0
    start = FNR
    file = FILENAME
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
