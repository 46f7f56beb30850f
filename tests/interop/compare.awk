# Compares two tables (table.awk). The input is, in this order, the known differences, the table of the reports and the
# table of the captures. Lists items that differ and are not known, and known ones that do not differ. If there are
# none, prints how much is the same.

function complain(text) {
    print text
    failed = 1
}

function expect(trace, list_of_frames, list_of_items,   frame, item, i, j) {
    split(list_of_frames, frame, ",")
    split(list_of_items, item, ",")
    for (i in frame) for (j in item) expected[trace "\t" frame[i] "\t" item[j]] = 1
}

# The name of an item among the known differences, the same for a hex and a binary trace.
function name_of(trace, frame, item) {
    sub(/\.[a-z]+$/, "", trace)
    return trace "\t" frame "\t" item
}

function compare_row(row,   part, item, where, same) {
    split(row, part, "\t")
    item = name_of(part[1], part[2], part[3])
    where = part[1] ", frame " part[2] ": " part[3] ": "
    same = report[row] "" == capture[row] ""
    if (same && item in expected) complain(where "is known, but does not differ")
    if (!same && !(item in expected))
        complain(where "\"" report[row] "\" in the report, \"" capture[row] "\" in the capture")
    rows++
    differences += item in expected
    met[item] = 1
}

# Complains about a known difference that no trace has. Traces outside of the project need not be there.
function compare_known(item) {
    if (!(item in met) && (item !~ /^\.\./ || outside)) complain(item ": is known, but not there")
}

BEGIN {
    FS = "\t"
    traces = frames = rows = differences = outside = failed = 0
}
ARGIND == 1 && !/^#/ { split($0, word, " "); expect(word[1], word[2], word[3]) }
ARGIND == 1 { next }
/^\.\./ { outside = 1 }
{ key = $1 "\t" $2 "\t" $3; keys[key] = 1 }
ARGIND == 3 { capture[key] = $4; next }
{ report[key] = $4 }
$3 == "frames" { traces++; frames += $4 }
$3 == "frames" && $4 == 0 { complain($1 ": no frames") }
END {
    for (name in keys) compare_row(name)
    for (name in expected) compare_known(name)
    if (failed) exit 1
    printf "%d traces, %d frames, %d items the same in report and capture, but for %d known differences\n", \
        traces, frames, rows, differences
}
