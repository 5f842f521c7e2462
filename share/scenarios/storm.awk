# Writes the scenario storm.jsonl; reads the lines that check the end of empty-system.jsonl.
# Each thread calls managers of its own, so that the end is the same in whatever order the threads get their turn.

function call(thread, manager, operation, arguments, returned) {
    printf "{\"at\":%.3f,\"thread\":\"%s\",\"manager\":\"%s\",\"operation\":\"%s\",\"arguments\":[%s]%s}\n",
        number / 1000, thread, manager, operation, arguments, returned == "" ? "" : ",\"returns\":" returned
}

# Sets a value; each tenth time around asks for it, too.
function set(thread, manager, value, json) {
    call(thread, manager, "set" value, json, "")
    held[manager " get" value] = json
    if (number % 40 < 4) {
        call(thread, manager, "get" value, "", json)
    }
}

function entries(count, i, list) {
    for (i = 0; i < count; ++i) {
        list = list sprintf("%s{\"item_id\":%d,\"state\":%d,\"current_value\":\"%d\"}", i ? "," : "", 101 + i, i % 3, number)
    }
    return list
}

BEGIN {
    print "{\"tavScenario\":1,\"title\":\"a storm: 1,000 calls a second from four threads\"," \
        "\"reason\":\"what do pages do when the backend sends more than anybody can read?\",\"made\":\"storm.awk\"}"
    seconds = 5
    for (number = 0; number < seconds * 1000; ++number) {
        if (number % 4 == 0) {
            set("agent", "ITavNetControlMgr", "NetCount",
                sprintf("{\"device_count\":4,\"rule_count\":%d,\"blocked_packets\":\"%d\"}", number % 10, number * 100))
        } else if (number % 4 == 1) {
            set("agent2", "ITavAuditMgr", "AuditCount", sprintf("{\"count\":%d}", number))
        } else if (number % 4 == 2) {
            set("agent3", "ITavLineScanMgr", "LineScanContent", "{\"items\":[" entries(10) "]}")
        } else {
            set("agent4", "ITavCompleteProtectMgr", "CurPathState",
                sprintf("{\"path\":\"/usr/lib/modules/%d.ko\"}", number))
        }
    }
}

# A manager that was set something returns it; all others are as in the empty system.
FNR > 1 {
    match($0, /"manager":"[A-Za-z]*"/)
    manager = substr($0, RSTART + 11, RLENGTH - 12)
    match($0, /"operation":"[A-Za-z]*"/)
    getter = substr($0, RSTART + 13, RLENGTH - 14)
    if (manager " " getter in held) {
        sub(/"returns":.*/, "\"returns\":" held[manager " " getter] "}")
    }
    print
}
