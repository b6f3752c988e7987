#!/usr/bin/env bash
# clang-tidy over our own sources: lint.sh BUILD_FOLDER. A file that passed is looked at again only when it, a
# header or the configuration has changed.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
stamps=$build/lint
mkdir -p "$stamps"
# The sources as they stand: without the precompiled headers, which would hide a missing include.
commands=$build/lint-commands
cmake -S . -B "$commands" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
common=$(cat .clang-tidy $(git ls-files '*.h' ':!tests') | sha1sum | cut -c1-40)

lint_one() {
    local file=$1 commands=$2 stamps=$3 common=$4
    local stamp=$stamps/${file//\//_} key output
    key=$common-$(sha1sum <"$file" | cut -c1-40)
    [ "$(cat "$stamp" 2>/dev/null)" = "$key" ] && return 0
    if output=$(clang-tidy --quiet -p "$commands" "$file" 2>/dev/null); then
        echo "$key" >"$stamp"
    else
        printf '%s\n' "$output"
        return 1
    fi
}
export -f lint_one

git ls-files '*.cpp' | grep -v '^tests/' |
    xargs -P "$(nproc)" -I{} bash -c 'lint_one "$@"' _ {} "$commands" "$stamps" "$common"
echo "lint: clean"
