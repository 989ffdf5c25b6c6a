# SPDX-License-Identifier: BSD-3-Clause
# Filter of the public headers on their way into Doxygen: gives default constructors, destructors, copies and moves
# that have no comment of their own the words that are true of all of them. Line numbers stay as they are.

function undocumented(line) {
    return !documented && line !~ /\/\/\/|\/\*\*/ && line ~ /;[ ]*$|\{.*\}[ ]*$/
}

{
    line = $0
    words = ""
    # At most one argument, of the class's own type: copy, move, default; with a tilde: the destructor.
    if (match(line, /^ +(constexpr |inline |virtual )*~?[A-Za-z_]+\(([A-Za-z_]+ (const &|&&)( [a-z]+)?)?\)/)) {
        head = substr(line, RSTART, RLENGTH)
        gsub(/^ +|constexpr |inline |virtual /, "", head)
        name = head; sub(/\(.*/, "", name); sub(/^~/, "", name)
        argument = head; sub(/^[^(]*\(/, "", argument); sub(/\)$/, "", argument)
        if (head ~ /^~/) words = "Frees what the object holds."
        else if (argument == "" && name ~ /^[A-Z]/) words = "Makes an empty one."
        else if (index(argument, name " const &") == 1) words = "Copies."
        else if (index(argument, name " &&") == 1) words = "Takes over the content of another."
    } else if (match(line, /^ +[A-Za-z_]+ & operator=\([A-Za-z_]+ const &( [a-z]+)?\)/)) {
        words = "Becomes a copy of the right side."
    } else if (match(line, /^ +[A-Za-z_]+ & operator=\([A-Za-z_]+ &&( [a-z]+)?\)/)) {
        words = "Takes over the content of the right side."
    }
    if (words != "" && line ~ /= delete;/) words = "Not offered."
    if (words != "" && undocumented(line)) line = line " ///< " words
    print line
    if ($0 !~ /^ *(template <.*>|\[\[nodiscard\]\])? *$/) documented = ($0 ~ /\*\/ *$|^ *\/\/\/ /)
}
