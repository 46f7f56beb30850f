# What makes the table of a trace: one line for each item of each frame, with trace, frame, item and value, and tabs
# between them. An item that a frame does not have has no line. An item that it has several times has all its values in
# one line. Frame 0 is the trace as a whole. The variables `trace` and `frame` say where the items belong.

BEGIN { delete row }

function add(item, value) {
    if (value == "") return
    if (item in row) value = row[item] "," value
    row[item] = value
}

# Writes the items that were added for the frame.
function show_frame(   item) {
    for (item in row) print trace "\t" frame "\t" item "\t" row[item]
    delete row
}

function show_count(count) {
    frame = 0
    add("frames", count)
    show_frame()
}

# The number that digits of a base up to 16 mean.
function number(digits, base,   result, i) {
    result = 0
    for (i = 1; i <= length(digits); i++) result = base * result + index("123456789abcdef", substr(digits, i, 1))
    return result
}

# A time since 1970 in the form of a report.
function time_of(seconds, milliseconds,   part) {
    split(strftime("%m %d %Y %H %M %S", seconds), part, " ")
    return sprintf("%d/%d/%d, %d:%d:%d.%d", part[1], part[2], part[3], part[4], part[5], part[6], milliseconds)
}

# Fills names from "KEY=NAME,KEY=NAME".
function read_names(list, names,   pairs, pair, i) {
    split(list, pairs, ",")
    for (i in pairs) {
        split(pairs[i], pair, "=")
        names[pair[1]] = pair[2]
    }
}
