# Writes the scenario many-rows.jsonl; reads the lines that check the end of empty-system.jsonl.

function call(time, manager, operation, arguments) {
    printf "{\"at\":%s,\"manager\":\"%s\",\"operation\":\"%s\",\"arguments\":[%s]}\n", time, manager, operation, arguments
}

# Lists are printed, not put together: a text of ten million letters that grows takes minutes.
function begin(time, manager, operation) {
    printf "{\"at\":%s,\"manager\":\"%s\",\"operation\":\"%s\",\"arguments\":[", time, manager, operation
}

function device(i) {
    return sprintf("{\"name\":\"eth%d\",\"state\":%d,\"index\":%d,\"type\":1,\"mac\":\"02:00:00:00:%02x:%02x\"," \
                   "\"addresses\":[\"10.%d.%d.1/24\"],\"mtu\":1500,\"rx_bytes\":\"%d\"}",
                   i, state[i], i + 1, int(i / 256), i % 256, int(i / 256), i % 256, received[i])
}

function printDevices(i) {
    printf "{\"devices\":["
    for (i = 0; i < devices; ++i) {
        printf "%s%s", i ? "," : "", device(i)
    }
    printf "]}"
}

function row(i) {
    return sprintf("{\"isChecked\":%s,\"title\":\"/srv/%d\",\"itemKey\":\"file:%d\"," \
                   "\"detail\":\"%d bytes\",\"status\":%s}",
                   checked[i] ? "true" : "false", i, i, size[i], size[i] > 0 ? "true" : "false")
}

function printRows(i) {
    printf "["
    for (i = 0; i < rows; ++i) {
        printf "%s%s", i ? "," : "", row(i)
    }
    printf "]"
}

function setDevices(time) {
    begin(time, "ITavNetControlMgr", "setDeviceInfo")
    printDevices()
    print "]}"
}

function setRows(time) {
    begin(time, "ITavProtectMgr", "setProtectUIData")
    printRows()
    print "]}"
}

# A manager that was set something returns it; all others are as in the empty system.
function printEnd(line) {
    if (line ~ /"operation":"getDeviceInfo"/) {
        sub(/"returns":.*/, "\"returns\":", line)
        printf "%s", line
        printDevices()
        print "}"
    } else if (line ~ /"operation":"getProtectUIData"/) {
        sub(/"returns":.*/, "\"returns\":", line)
        printf "%s", line
        printRows()
        print "}"
    } else {
        print line
    }
}

BEGIN {
    devices = 10000
    rows = 100000
    print "{\"tavScenario\":1,\"title\":\"10,000 network devices and 100,000 protection rows that change\"," \
        "\"reason\":\"no machine at hand has so many: what do lists, filters and edits do with them?\"," \
        "\"made\":\"many-rows.awk\"}"

    for (i = 0; i < devices; ++i) {
        state[i] = i % 3 > 0
        received[i] = i * 1000
    }
    for (i = 0; i < rows; ++i) {
        size[i] = i % 1000
    }
    setDevices("0")
    setRows("0.1")

    # Single devices and rows, a thousand each, spread over the lists; each row once.
    for (edit = 0; edit < 1000; ++edit) {
        time = sprintf("%.3f", 0.5 + edit / 250)
        i = edit * 7919 % devices
        call(time, "ITavNetControlMgr", "reverseDeviceState", i)
        state[i] = !state[i]
        i = edit * 7919 % rows
        checked[i] = 1
        size[i] = 5000 + edit
        call(time, "ITavProtectMgr", "updateUIItem", row(i))
    }

    # Everything at once: the new traffic of all devices, all rows with other details, all of them ticked.
    for (i = 0; i < devices; ++i) {
        received[i] += 4096
    }
    setDevices("5")
    for (i = 0; i < rows; i += 2) {
        size[i] += 10000
        checked[i] = 0
    }
    setRows("6")
    call("7", "ITavNetControlMgr", "reverseDevicesState", "")
    for (i = 0; i < devices; ++i) {
        state[i] = !state[i]
    }
    call("7", "ITavProtectMgr", "setUIAllCheck", "true")
    for (i = 0; i < rows; ++i) {
        checked[i] = 1
    }
}

FNR > 1 { printEnd($0) }
