# SPDX-License-Identifier: BSD-3-Clause
# Filter of the public headers on their way into Doxygen. Gives default constructors, destructors, copies and moves that
# have no comment of their own the words that are true of all of them, and tells an overload right behind a commented one
# as such. So Doxygen can insist on a comment for everything else. Line numbers stay as they are.

{
    line = $0
    words = ""
    name = ""
    # The name that is declared: what stands before the first bracket.
    if (match(line, /(~?[A-Za-z_0-9]+|operator *[^A-Za-z_( ]+|operator\(\)|operator [A-Za-z_:]+( const)? ?[*&]?)\(/))
        name = substr(line, RSTART, RLENGTH - 1)
    # At most one argument, of the class's own type: copy, move, default; with a tilde: the destructor.
    if (match(line, /^ +(constexpr |inline |virtual )*~?[A-Za-z_]+\(([A-Za-z_]+ (const &|&&)( [a-z]+)?)?\)/)) {
        head = substr(line, RSTART, RLENGTH)
        gsub(/^ +|constexpr |inline |virtual /, "", head)
        class = head; sub(/\(.*/, "", class); sub(/^~/, "", class)
        argument = head; sub(/^[^(]*\(/, "", argument); sub(/\)$/, "", argument)
        if (head ~ /^~/) words = "Frees what the object holds."
        else if (argument == "" && class ~ /^[A-Z]/) words = "Makes an empty one."
        else if (index(argument, class " const &") == 1) words = "Copies."
        else if (index(argument, class " &&") == 1) words = "Takes over the content of another."
    } else if (match(line, /^ +[A-Za-z_]+ & operator=\([A-Za-z_]+ const &( [a-z]+)?\)/)) {
        words = "Becomes a copy of the right side."
    } else if (match(line, /^ +[A-Za-z_]+ & operator=\([A-Za-z_]+ &&( [a-z]+)?\)/)) {
        words = "Takes over the content of the right side."
    }
    if (words == "" && name != "" && name == told) words = "\\overload"
    if (words != "" && line ~ /= delete;/) words = "Not offered."
    declares = line ~ /^ .*(;|\{.*\})[ ]*$/
    own = documented || line ~ /\/\/\/|\/\*\*/
    if (declares && !own && words != "") line = line " ///< " words
    print line

    # What stands directly below a commented declaration of the same name is told with it.
    if (line ~ /^ *$/) told = ""
    else if (declares && name != "") told = (own || words != "") ? name : ""
    if ($0 !~ /^ *(template <.*>|\[\[nodiscard\]\])? *$/) documented = ($0 ~ /\*\/ *$|^ *\/\/\/ /)
}
