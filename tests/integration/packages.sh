#!/usr/bin/env bash
# usage: packages.sh PACKAGES_DIR ARCHITECTURE [ROOT]      as root
#
# Tries the packages of PACKAGES_DIR on a bare system: installs them with apt, runs tavctl, and what the guide for page
# authors prints, from its text; takes a new page to a picture of it, and removes all again. Another ARCHITECTURE than
# this machine's is emulated. ROOT is a bare Debian to do it in: a tarball, which is unpacked and thrown away again, or a
# directory, which is used and left as it is then. Without ROOT one is made with mmdebstrap from this machine's own apt
# sources.
set -euo pipefail

fail() {
    echo "packages: $*" >&2
    exit 1
}

[[ $# -ge 2 && $# -le 3 ]] || { sed -n '2,8p' "$0" | sed 's/^# \{0,1\}//'; exit 2; }
[[ $(id -u) -eq 0 ]] || fail "takes root's rights"
packages_dir=$(cd "$1" && pwd)
tests=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
architecture=$2
packages=("$packages_dir"/*_"$architecture".deb "$packages_dir"/*_all.deb)
[[ -f ${packages[0]} ]] || fail "$packages_dir holds no package for $architecture; build them with ./dev package"

# Programs of another architecture run in the bare system as its own do.
if [[ $architecture == arm64 && $(dpkg --print-architecture) != arm64 ]]; then
    binfmt=/proc/sys/fs/binfmt_misc
    [[ -f $binfmt/register ]] || mount -t binfmt_misc binfmt_misc "$binfmt"
    [[ -f $binfmt/qemu-aarch64 ]] || tail -n 1 /usr/lib/binfmt.d/qemu-aarch64.conf >"$binfmt/register"
fi

work=$(mktemp -d)
root=$work/root
mounted=()
finish() {
    local i
    for ((i = ${#mounted[@]} - 1; i >= 0; --i)); do
        umount -R "${mounted[i]}" || { echo "packages: left mounted: ${mounted[i]}" >&2; return; }
    done
    rm -rf --one-file-system "$work"
}
trap finish EXIT

if [[ -d ${3:-} ]]; then
    root=$(cd "$3" && pwd)
elif [[ -n ${3:-} ]]; then
    mkdir "$root"
    tar -C "$root" --exclude='./dev/*' -xf "$3"
else
    command -v mmdebstrap >/dev/null || fail "mmdebstrap is not installed"
    release=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
    sources=()
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources}; do
        if [[ -s $file ]]; then
            sources+=("$file")
        fi
    done
    mmdebstrap --quiet --variant=minbase "--architectures=$architecture" --include=ca-certificates --aptopt='APT::Install-Recommends "false"' \
        "$release" "$root" "${sources[@]}"
fi
# The way to the mirrors is this machine's.
cp -an /etc/apt/apt.conf.d/. "$root/etc/apt/apt.conf.d/"
cp /etc/resolv.conf /etc/hosts "$root/etc/"
mount -t proc proc "$root/proc"
mounted+=("$root/proc")
mount --rbind /dev "$root/dev"
mounted+=("$root/dev")
mount --make-rslave "$root/dev"

# inside COMMAND...: runs it in the bare system, with nothing of this machine's environment but its proxies.
inside() {
    chroot "$root" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive QT_QPA_PLATFORM=offscreen \
        ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} "$@"
}

rm -rf "$root/root/packages"
mkdir -p "$root/root/packages"
cp "${packages[@]}" "$root/root/packages/"

inside apt-get update -q
# First the tool alone: what it pulls in must be all that it needs to run.
inside sh -c 'apt-get install -y -q --no-install-recommends /root/packages/tavctl_*.deb \
    /root/packages/tav-data-plugin_*.deb /root/packages/libtavcommon1_*.deb'
inside tavctl registry
inside tavctl run --root /usr/share/tavsec/demo >"$work/run.txt" || fail "tavctl run has failed: $(tail -n 5 "$work/run.txt")"
grep -q SubFunc_LogAudit "$work/run.txt" || fail "tavctl run does not show the pages of the demo"
echo "packages: tavctl run: $(wc -l <"$work/run.txt") lines"

# An integrator's check: clean on the demo, every planted mistake on the broken root (the tool's own tests say which).
inside tavctl doctor --root /usr/share/tavsec/demo || fail "tavctl doctor finds fault with the demo"
rm -rf "$root/root/broken-root"
cp -r "$tests/data/broken-root" "$root/root/broken-root"
status=0
inside tavctl doctor --root /root/broken-root >"$work/doctor.txt" || status=$?
cat "$work/doctor.txt"
summary=$(sed -n 's/.*QString summary = "\(.*\)";.*/\1/p' "$tests/tools/tavctl/DoctorCommandTest.cpp")
[[ $status -eq 1 && $(tail -n 1 "$work/doctor.txt") == "$summary" ]] ||
    fail "tavctl doctor does not find the planted mistakes"
# shellcheck disable=SC2016  # that shell expands it
[[ $(inside bash -c 'source /usr/share/bash-completion/completions/tavctl
    COMP_WORDS=(tavctl doc) COMP_CWORD=1; _tavctl; echo "${COMPREPLY[*]}"') == doctor ]] || fail "no completion in bash"
for file in zsh/vendor-completions/_tavctl fish/vendor_completions.d/tavctl.fish tavsec/schemas/pages.schema.json; do
    inside test -s "/usr/share/$file" || fail "$file is not installed"
done

# Then what a page author types, from the guide's text, among the packages. What takes clang, sanitizers or the packages
# of another architecture is left out where the programs are emulated.
chapters='1|2|10|13|16'
other=("$packages_dir"/*_arm64.deb)
if [[ $architecture == "$(dpkg --print-architecture)" ]]; then
    chapters='1|2|10|11|12|13|14|16'
    if [[ $architecture != arm64 && -f ${other[0]} ]]; then
        chapters+='|15'
        cp "${other[@]}" "$root/root/packages/"
    fi
fi
cp "$tests/integration/"{run-guide,page-to-picture}.sh "$tests/../docs/page-plugin-guide.md" "$root/root/"
inside sh -c "cd /root/packages && CMAKE_BUILD_PARALLEL_LEVEL=$(nproc) ../run-guide.sh ../page-plugin-guide.md '$chapters'" ||
    fail "the guide's commands do not work"
echo "packages: run as the guide prints them: the commands of its chapters ${chapters//|/, }"
page=/root/packages/my-page
[[ -s $root$page/page.png ]] || fail "the guide's commands have taken no picture"
inside sh -c "cd $page && sh build-without-cmake.sh"
inside "$page/build/page-preview" "$page/libNetControlPagePlugin.so" "$page/pkg-config.png"
[[ -s $root$page/pkg-config.png ]] || fail "the page built with pkg-config has drawn nothing"
[[ $(inside pkg-config --cflags tav-data-plugin) == *-UNDEBUG* ]] || fail "pkg-config does not pass -UNDEBUG on"
if [[ $chapters == *15 ]]; then
    inside apt-get purge -y -q {libtavcommon1,tav-data-plugin,tav-data-plugin-dev}:arm64
fi

inside apt-get install -y -q --no-install-recommends dpkg-dev file "${packages[@]/#*\//\/root\/packages\/}"
inside test -s /usr/share/doc/tav-data-plugin-doc/html/index.html || fail "the reference is not installed"
for guide in page-plugin-guide compatibility architecture scenarios; do
    inside test -s "/usr/share/doc/tav-data-plugin-dev/$guide.md" ||
        fail "$guide.md is not installed; does this system's dpkg leave /usr/share/doc out?"
done
# The window with the page of a new project, within five minutes where nothing is emulated.
SECONDS=0
inside sh -c 'cd /root && rm -rf Devices &&
    ./page-to-picture.sh Devices SubFunc_serverResourceInfo /usr/share/tavsec/demo'
[[ $SECONDS -lt 300 || $architecture != "$(dpkg --print-architecture)" ]] || fail "a new page takes $SECONDS s"
# shellcheck disable=SC2016  # that shell expands it
inside sh -c 'cd /root/Devices/build && cpack &&
    test "$(dpkg-deb -f tav-page-devices_*.deb Package)" = tav-page-devices'

# A newer library alone takes nothing away but what is compiled against the older one.
newer=$work/newer
dpkg-deb -R "$packages_dir"/libtavcommon1_*_"$architecture".deb "$newer"
sed -i 's/^Version: .*/&+newer/' "$newer/DEBIAN/control"
chmod 755 "$newer"
dpkg-deb --root-owner-group -b "$newer" "$root/root/packages/newer.deb" >/dev/null
inside apt-get install -s -q --no-install-recommends /root/packages/newer.deb | tee "$work/newer.txt"
! grep -E '^Remv (tav-data-plugin|tavctl|tavdesk) ' "$work/newer.txt" || fail "a newer library removes what it serves"

# What was installed goes without a trace.
mapfile -t names < <(for package in "${packages[@]}"; do dpkg-deb -f "$package" Package; done)
mapfile -t installed < <(inside dpkg -L "${names[@]}" | grep -i tav)
[[ ${#installed[@]} -gt 50 ]] || fail "the packages hold ${#installed[@]} files"
inside apt-get purge -y -q "${names[@]}"
for file in "${installed[@]}"; do
    [[ ! -e $root$file ]] || fail "left behind: $file"
done
echo "packages: installed, used and removed on a bare $(sed -n 's/^PRETTY_NAME=//p' "$root/etc/os-release")"
