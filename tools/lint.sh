#!/usr/bin/env bash
# clang-tidy over our own sources: lint.sh BUILD_FOLDER. A file that passed is looked at again only when it, a
# header or the configuration has changed.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
stamps=$build/lint
mkdir -p "$stamps"
common=$(cat .clang-tidy $(git ls-files '*.h' ':!tests') | sha1sum | cut -c1-40)

lint_one() {
    local file=$1 build=$2 stamps=$3 common=$4
    local stamp=$stamps/${file//\//_} key output
    key=$common-$(sha1sum <"$file" | cut -c1-40)
    [ "$(cat "$stamp" 2>/dev/null)" = "$key" ] && return 0
    if output=$(clang-tidy --quiet -p "$build" "$file" 2>/dev/null); then
        echo "$key" >"$stamp"
    else
        printf '%s\n' "$output"
        return 1
    fi
}
export -f lint_one

git ls-files '*.cpp' | grep -v '^tests/' |
    xargs -P "$(nproc)" -I{} bash -c 'lint_one "$@"' _ {} "$build" "$stamps" "$common"
echo "lint: clean"
