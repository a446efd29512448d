# A filter for Doxygen, which does not follow links between pages in a folder with a blank: gives each
# page a label, its file's name, and lets links refer to that.
function label(file)
{
    if (file ~ /benchmarks\/README\.md$/)
        return "benchmarks"
    if (file ~ /README\.md$/)
        return "index"
    gsub(/.*\/|\.md$/, "", file)
    return tolower(file)
}
FNR == 1 && label(FILENAME) != "index" { $0 = $0 " {#" label(FILENAME) "}" }
{
    while (match($0, /\]\([^):]+\.md\)/))
        $0 = substr($0, 1, RSTART) "(@ref " label(substr($0, RSTART + 2, RLENGTH - 3)) substr($0, RSTART + RLENGTH - 1)
    print
}
