# The newest section of CHANGELOG.md as the entries of a Debian changelog, which has lines of at most 80 columns.
/^## / { ++sections; next }
sections != 1 || !NF { next }
$1 == "-" { finish(); line = "  *"; $1 = "" }
{
    count = split($0, words)
    for (i = 1; i <= count; ++i) {
        if (length(line) + 1 + length(words[i]) > 79) { print line; line = "   " }
        line = line " " words[i]
    }
}
END { finish() }

function finish() { if (line) print line }
