# The table of a report (table.awk). The variable `header` holds the first three numbers of a trace, of two octets each.
# They are the time of the frames before the first time stamp.

BEGIN {
    frame = 0
    expected = ""
    split(header, half, " ")
    time = time_of(half[1] + 65536 * half[2] + int(half[3] / 1000), half[3] % 1000)
    read_names("Receive Ready=RR,Receive Not Ready=RNR,Reject=REJ,Information=I,Unnumbered Information=UI," \
               "Set Asynchronous Balanced Mode=SABME,Disconnected Mode=DM,Disconnect=DISC,Frame Reject=FRMR," \
               "Unnumbered Acknowledgment=UA,Exchange Identification=XID", short_name)
}

function begin_frame(way) {
    show_frame()
    frame++
    line = NF > 1 ? substr($2, 2) + 0 : 0
    add("direction", way)
    add("time", time)
    side = expected = element = ""
}

# "Command=1   SAPI=0x00"
function address() {
    side = $1 ~ /^Command/ ? "command" : "response"
    add("C/R", substr($1, length($1)))
    add("SAPI", number(substr($2, 8), 16))
    add("line", line)
}

# "0x02 0x05  Information", "0x7f  Disconnected Mode"
function control_field(   name, two, last, poll_final) {
    name = $0
    sub(/^(0x.. ?)+ +/, "", name)
    add("frame", short_name[name])
    two = $2 ~ /^0x/
    last = number(substr($(1 + two), 3), 16)
    poll_final = int(last / (two ? 1 : 16)) % 2
    add("P/F", poll_final)
    if (poll_final || !two) add("side", side)
    if (two) add("N(R)", int(last / 2))
    if (name == "Information") add("N(S)", int(number(substr($1, 3), 16) / 2))
    expected = name ~ /Information$/ ? "message" : ""
}

# "Dest=0   CR=0x0123"; the flag is also the top bit of the number.
function call_reference(   digits) {
    digits = substr($2, 6)
    add("flag", substr($1, 6))
    add("reference", sprintf("%0" length(digits) "x", number(digits, 16) % 2 ^ (4 * length(digits) - 1)))
}

# "SETUP(0x05)", "Unknown Message Type: 0x00"
function message_type() {
    if (/\(0x..\)$/) add("message", number(substr($0, length($0) - 2, 2), 16))
    if (/^Unknown Message Type: 0x..$/) add("message", number(substr($4, 3), 16))
    expected = ""
}

function element_line() {
    if (/^1:  .*\(0x..\)$/) element = substr($0, length($0) - 4, 4)
    if (/ Cause Value$/ && element == "0x08") add("cause", number(substr($(NF - 2), 2), 2))
    if (/^[^ ]+  Number Digit\(s\)$/ && element == "0x6c") add("calling", $1)
    if (/^[^ ]+  Number Digit\(s\)$/ && element == "0x70") add("called", $1)
}

# "UI(COMMAND) Sequence 1(0x13)", "SABMR (0xef)"
function dpnss_control_field() {
    add("frame", number(substr($0, length($0) - 2, 2), 16))
    if (/^UI/) add("C/R", /COMMAND/ == (row["direction"] == "RECEIVE"))
    expected = /^UI\(COMMAND/ ? "message" : ""
}

{ sub(/^ +/, "") }
/^TRACE START TIME/ { time = $6 " " $7 }
/^Time Stamp : / { time = $4 " " $5 }
/^(RECEIVE|TRANSMIT)( \([0-9]+\))?$/ { begin_frame($1); next }
/^Invalid Number: / { begin_frame("unknown"); next }
/ SAPI=0x/ { address(); next }
/^TEI=0x/ { add("TEI", number(substr($1, 7), 16)); expected = "control"; next }
/^(Orig|Dest)=[01]   CR=0x/ { call_reference(); next }
/^Timeslot / { add("channel", $2 + 0); expected = "DPNSS control"; next }
expected == "control" { control_field(); next }
expected == "DPNSS control" { dpnss_control_field(); next }
expected == "message" { message_type(); next }
expected == "text" { add(field, $0); expected = "" }
expected == "code" { add(field, number(substr($1, 3), 16)); expected = "" }
/^(Selection|Indication) Field$/ { field = tolower($1); expected = "text" }
/^Clear\/Reject Cause$/ { field = "cause"; expected = "code" }
{ element_line() }
END { show_frame(); show_count(frame) }
