#!/usr/bin/env bash
# Runs the recipes of README.md as they are written there. usage: readme_test.sh PROGRAM PROJECT-FOLDER
set -euo pipefail
samples=$2/samples
readme=$2/README.md
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/bin" "$folder/traces"
ln -s "$1" "$folder/bin/QUANDRIX"
cd "$folder"
export PATH=$folder/bin:$PATH TZ=UTC

# recipe TEXT: runs the fenced block behind the README's line with that text.
recipe() {
    eval "$(awk -v text="$1" 'index($0, text) { found = 1 } block && /^```$/ { exit } block { print } found && /^```sh$/ { block = 1 }' "$readme")"
}

# check NAME EXPECTED: compares standard input with it.
check() { diff <(printf '%s\n' "$2") - || { echo "$1: not as expected"; exit 1; }; }

cp "$samples/pri-call.hex.res" report
recipe 'frame by frame'
polls=$(grep -c 'Receive Ready' report)
recipe 'Leave out' >busy
grep -c . busy | check "a report without its polls of four lines" $(($(grep -c . report) - 4 * polls))
recipe 'One call' | grep -cE '^ *(RECEIVE|TRANSMIT)' | check "frames of the call" 8
recipe 'One line a message' | check "messages" 'TRANSMIT CR=0x0123 SETUP(0x05)
RECEIVE CR=0x8123 CALL PROCEEDING(0x02)
RECEIVE CR=0x8123 ALERTING(0x01)
RECEIVE CR=0x8123 CALL CONNECT(0x07)
TRANSMIT CR=0x0123 CALL CONNECT ACKNOWLEDGE(0x0f)
RECEIVE CR=0x8123 CALL DISCONNECT(0x45)
TRANSMIT CR=0x0123 RELEASE(0x4d)
RECEIVE CR=0x8123 RELEASE COMPLETE(0x5a)'
recipe 'All causes' | check "causes" 'CR=0x8123 cause 16'
if command -v parallel >/dev/null; then
    cp "$samples/pri-call.bin" traces/one.bin
    cp "$samples/pri-call.bin" traces/two.bin
    recipe 'Many traces' 2>/dev/null >/dev/null
    cmp decoded/one.bin/one.bin.res "$samples/pri-call.bin.res"
    cmp decoded/two.bin/two.bin.res "$samples/pri-call.bin.res"
fi
