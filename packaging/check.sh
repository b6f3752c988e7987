#!/usr/bin/env bash
# Tries what users get: check.sh install BUILD installs into a folder, check.sh deb BUILD makes, installs and
# removes the package in a root of its own. Each starts the program as a user without rights there.
set -euo pipefail
what=$1
build=$(readlink -f "$2")
source=$(dirname "$(readlink -f "$0")")/..
id=example.moque.KestroJot
work=$(mktemp -d)
program_pid=
trap 'status=$?; [ -z "$program_pid" ] || kill -KILL "$program_pid" 2>/dev/null || true; rm -rf "$work"; exit $status' EXIT
chmod 711 "$work"

fail() { echo "$what: $*" >&2; exit 1; }

# within SECONDS COMMAND...: until it succeeds.
within() {
    local tries=$(($1 * 10))
    shift
    until "$@"; do
        tries=$((tries - 1))
        [ $tries -gt 0 ] || return 1
        sleep 0.1
    done
}

is_there() { [ -e "$1" ]; }
agent_listens() { [ -n "$(find "${channels[@]}" -name '*-agent' -newer "$work/before" 2>/dev/null)" ]; }
agent_is_gone() { ! agent_listens; }
has_ended() { ! kill -0 "$program_pid" 2>/dev/null; }

start_as_user() {
    local home=$work/home user=() uid
    uid=$(id -u)
    mkdir "$home"
    if [ "$uid" = 0 ]; then
        uid=65534
        chown $uid:$uid "$home"
        user=(setpriv --reuid=$uid --regid=$uid --clear-groups)
    fi
    channels=("$(getent passwd "$uid" | cut -d: -f6)/.local/state/kestrojot" "/tmp/kestrojot-$uid")
    touch "$work/before"
    (cd / && exec env -i PATH="$PATH" HOME="$home" LANG=C.UTF-8 XDG_RUNTIME_DIR="$home" QT_QPA_PLATFORM=offscreen \
        QT_LOGGING_RULES="qt.qpa.*=false" ${user[@]+"${user[@]}"} "$1") >"$work/said" 2>&1 &
    program_pid=$!
    within 15 is_there "$home/.local/share/KestroJot/Set.ini" || fail "no settings: $(cat "$work/said")"
    within 5 is_there "$home/KestroData/墨鹊理财/专业版例子.jotdb" || fail "no sample book: $(cat "$work/said")"
    within 10 agent_listens || fail "the agent does not answer"
    kill -TERM "$program_pid"
    within 5 has_ended || fail "TERM does not end it"
    wait "$program_pid" || fail "it ended with $?"
    program_pid=
    within 5 agent_is_gone || fail "the agent stays"
    [ ! -s "$work/said" ] || fail "it said: $(cat "$work/said")"
}

# The files of a prefix, each where a desktop looks for it.
check_files() {
    local prefix=$1 file size
    for file in bin/KestroJot lib/kestrojot/JotAgent lib/kestrojot/JotIco lib/kestrojot/jotnetwork lib/kestrojot/Set.ini \
        lib/kestrojot/Skin/skin.ini lib/kestrojot/Ico.ico lib/kestrojot/Jot.ico lib/kestrojot/HeadIco.ico \
        share/applications/$id.desktop share/metainfo/$id.metainfo.xml share/mime/packages/kestrojot.xml \
        share/man/man1/KestroJot.1.gz share/doc/kestrojot/copyright share/icons/hicolor/scalable/apps/$id.svg; do
        [ -s "$prefix/$file" ] || fail "missing: $file"
    done
    for size in 16 22 24 32 48 64 128 256 512; do
        file=$prefix/share/icons/hicolor/${size}x$size
        file "$file/apps/$id.png" | grep -q "$size x $size" || fail "icon of $size"
        [ -s "$file/mimetypes/application-x-jotdb.png" ] || fail "book icon of $size"
    done
    [ "$(stat -c %a "$prefix/share/kestrojot/Set.ini")" = 644 ] || fail "mode of Set.ini"
    desktop-file-validate "$prefix/share/applications/$id.desktop"
    appstreamcli validate --no-net "$prefix/share/metainfo/$id.metainfo.xml" >"$work/appstream" ||
        fail "$(cat "$work/appstream")"
    update-mime-database "$prefix/share/mime" >/dev/null 2>&1
    grep -q 'application/x-jotdb:\*.jotdb' "$prefix/share/mime/globs2" || fail "MIME type"
    LC_ALL=C.UTF-8 MANROFFSEQ='' man --warnings -E UTF-8 -l -Tutf8 -Z "$prefix/share/man/man1/KestroJot.1.gz" \
        2>"$work/man" >/dev/null
    [ ! -s "$work/man" ] || fail "$(cat "$work/man")"
}

try_install() {
    cmake --install "$build" --prefix "$work/prefix" >/dev/null
    check_files "$work/prefix"
    mv "$work/prefix" "$work/moved" # nothing may depend on where it was made
    chmod -R a-w "$work/moved"
    start_as_user "$work/moved/bin/KestroJot"
    chmod -R u+w "$work/moved"
}

# What apt would do on a system with this status of packages; nothing is fetched or changed.
would_install() {
    apt-get -s -o Dir::State::status="$1" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= \
        --no-install-recommends install "$2" >"$work/apt" 2>&1
}

try_deb() {
    [ "$(id -u)" = 0 ] || exit 77
    local root=$work/root deb
    "$source/jot" make-deb >/dev/null
    deb=$(ls "$build"/packages/kestrojot_*.deb)
    dpkg-deb -f "$deb" Depends | grep libqt6widgets6 | grep -q libqt6network6 || fail "the libraries are not among its needs"
    # On a bare system, from the lists of this machine's sources; without lists, on this one.
    local status=/dev/null
    would_install "$status" dpkg || status=/var/lib/dpkg/status
    would_install "$status" "$deb" || fail "apt cannot install it: $(cat "$work/apt")"
    mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
    touch "$root/var/lib/dpkg/status"
    local dpkg=(dpkg --root="$root" --log="$work/log" --force-depends)
    "${dpkg[@]}" -i "$deb" >"$work/dpkg" 2>&1 || fail "$(cat "$work/dpkg")"
    cp -r "$root/usr" "$work/copy"
    check_files "$work/copy"
    start_as_user "$root/usr/bin/KestroJot"
    "${dpkg[@]}" -P kestrojot >"$work/dpkg" 2>&1 || fail "$(cat "$work/dpkg")"
    [ ! -e "$root/usr" ] || fail "left behind: $(find "$root/usr")"
}

"try_$what"
