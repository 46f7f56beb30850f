# The table (table.awk) of what tshark shows of a capture. The input has one line for each frame, one column for each
# field, and the names of the fields in the first line.

BEGIN {
    FS = "\t"
    read_names("0 =I,1 0=RR,1 1=RNR,1 2=REJ,3 0=UI,3 3=DM,3 16=DISC,3 24=UA,3 27=SABME,3 33=FRMR,3 43=XID", kind)
    read_names("C/R=lapd.cr,SAPI=lapd.sapi,TEI=lapd.tei,N(S)=lapd.control.n_s,N(R)=lapd.control.n_r," \
               "flag=q931.call_ref_flag,reference=q931.call_ref,cause=q931.cause_value," \
               "calling=q931.calling_party_number.digits,called=q931.called_party_number.digits," \
               "selection=dpnss.selection_field,indication=dpnss.indication_field", field_of_item)
}

function read_names_of_columns(   i) {
    for (i = 1; i <= NF; i++) column[$i] = i
}

# The value of a field, in decimal; "" without one.
function field(name,   text) {
    text = name in column ? $column[name] : ""
    if (text ~ /^0x/) return number(substr(text, 3), 16)
    return text == "True" ? 1 : text == "False" ? 0 : text
}

function lapd_frame(   command, response) {
    command = field("lapd.control.u_modifier_cmd")
    response = field("lapd.control.u_modifier_resp")
    add("line", substr($column["frame.interface_name"], 6) + 0)
    add("frame", kind[field("lapd.control.ftype") " " field("lapd.control.s_ftype") command response])
    add("P/F", field("lapd.control.p") + field("lapd.control.f"))
    if (field("lapd.control.p") command != "") add("side", "command")
    if (field("lapd.control.f") response != "") add("side", "response")
    add("message", field("q931.message_type") field("q931.maintenance_message_type"))
}

function dpnss_frame() {
    add("channel", 64 * field("dpnss_link.reserved") + 32 * field("dpnss_link.dlcId") + field("dpnss_link.dlcIdNr"))
    add("frame", field("dpnss_link.frameType"))
    if (field("dpnss_link.frameType") ~ /^(3|19)$/) add("C/R", field("dpnss_link.crbit"))
    if (field("dpnss.msg_grp_id") == "") return
    add("message", 16 * field("dpnss.msg_grp_id") + \
                   (field("dpnss.cc_msg_type") field("dpnss.e2e_msg_type") field("dpnss.lbl_msg_type")))
    add("cause", field("dpnss.clearing_cause") field("dpnss.rejection_cause"))
}

NR == 1 { read_names_of_columns(); next }
{
    frame = field("frame.number")
    split(field("frame.time_epoch"), moment, ".")
    add("time", time_of(moment[1], substr(moment[2], 1, 3)))
    add("direction", field("frame.p2p_dir") == 0 ? "TRANSMIT" : "RECEIVE")
    for (own in field_of_item) add(own, field(field_of_item[own]))
    if ("lapd.cr" in column) lapd_frame()
    else dpnss_frame()
    show_frame()
}
END { show_count(NR - 1) }
