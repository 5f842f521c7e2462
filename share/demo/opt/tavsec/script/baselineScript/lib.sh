# shellcheck shell=sh
# Sourced by the check scripts beside it; no check of its own.
#
# A check prints the current value in one line and ends with
#   0  the value meets the standard,
#   1  it does not,
#   2  it cannot be read; the reason is on stderr.

# Fixed, so that a caller's environment can neither swap a tool nor translate its output.
PATH=/usr/sbin:/usr/bin:/sbin:/bin
LC_ALL=C
export PATH LC_ALL

cannot() {
    printf '%s\n' "$*" >&2
    exit 2
}

need_file() {
    [ -e "$1" ] || cannot "$1 不存在"
    [ -r "$1" ] || cannot "无权限读取 $1"
}

show() {
    printf '%s\n' "${1:-未设置}"
}

# between VALUE MIN MAX: a text that is not a plain number is outside.
between() {
    case $1 in
        '' | *[!0-9]* | ??????????*) return 1 ;;
    esac
    [ "$1" -ge "$2" ] && [ "$1" -le "$3" ]
}

# one_line: joins the lines of stdin with spaces.
one_line() {
    paste -s -d ' ' -
}

# login_def KEY: the last setting of a key counts.
login_def() {
    need_file /etc/login.defs
    awk -v key="$1" '$1 == key { value = $2 } END { print value }' /etc/login.defs
}

# sshd_value KEYWORD (lower case): what the server would use; nothing when it is unset.
# Only root may ask the server itself, everybody else reads the files: there the first setting counts,
# drop-ins are included before the main file's own settings, and a Match block is not global.
sshd_value() {
    sshd -T 2>/dev/null | awk -v key="$1" '
        $1 == key { sub(/^[^ ]+ /, ""); print; found = 1; exit }
        END { exit !found }' && return

    main=/etc/ssh/sshd_config
    need_file "$main"
    set -- "$1" "$main"
    if grep -qi '^[[:space:]]*Include[[:space:]].*sshd_config\.d' "$main"; then
        set -- "$1" /etc/ssh/sshd_config.d/*.conf "$main"
    fi
    key=$1
    shift
    for file; do
        [ -e "$file" ] || continue
        need_file "$file"
        found=$(awk -v key="$key" '
            { sub(/^[ \t]+/, ""); name = tolower($0); sub(/[ \t=].*/, "", name) }
            name == "match" { exit }
            name == key { sub(/^[^ \t=]+[ \t=]+/, ""); gsub(/"/, ""); sub(/[ \t]+(#.*)?$/, ""); print; exit }
        ' "$file")
        [ -z "$found" ] || break
    done
    printf '%s\n' "$found"
}

# pam_option MODULE OPTION [CONFIG]: the module's argument, else the setting in its configuration file;
# "未启用" when no common stack loads the module. A module may stand in several stacks with different arguments.
pam_option() {
    option=$2
    config=${3:-}
    lines=
    seen=
    for file in /etc/pam.d/common-auth /etc/pam.d/common-password /etc/pam.d/system-auth /etc/pam.d/password-auth; do
        [ -r "$file" ] || continue
        seen=yes
        lines="$lines $(grep -v '^[[:space:]]*#' "$file" | grep -F "$1")"
    done
    [ -n "$seen" ] || cannot "未找到可读的 PAM 公共配置"
    case $lines in
        *[![:space:]]*) ;;
        *) echo 未启用; return ;;
    esac
    value=$(printf '%s\n' "$lines" | tr -s '[:space:]' '\n' | sed -n "s/^$option=//p" | head -n 1)
    if [ -z "$value" ] && [ -r "$config" ]; then
        value=$(sed -n "s/^[[:space:]]*${option}[[:space:]]*=[[:space:]]*\([^[:space:]#]*\).*/\1/p" "$config" |
            tail -n 1)
    fi
    printf '%s\n' "$value"
}

# active_service UNIT...: the first of the services that runs; nothing when none does.
active_service() {
    [ -d /run/systemd/system ] || cannot "系统未由 systemd 管理，无法读取服务状态"
    for unit; do
        if timeout 5 systemctl --quiet is-active "$unit.service" 2>/dev/null; then
            printf '%s\n' "$unit"
            return
        fi
    done
}

# check_permissions FILE MAX: owned by root and no permission bit beyond MAX (octal).
check_permissions() {
    mode=$(stat -L -c '%04a' "$1" 2>/dev/null) || cannot "无法读取 $1 的权限"
    owner=$(stat -L -c '%U' "$1")
    show "$mode $owner"
    [ "$owner" = root ] && [ $((0$mode & ~0$2)) -eq 0 ]
}

# check_sysctl KEY MIN MAX: the running value, whatever the configuration files say.
check_sysctl() {
    file=/proc/sys/$(printf '%s' "$1" | tr . /)
    need_file "$file"
    value=$(cat "$file" 2>/dev/null)
    [ -n "$value" ] || cannot "无法读取内核参数 $1"
    show "$value"
    between "$value" "$2" "$3"
}
