#!/usr/bin/env bash
# The demo opens the example that it is asked for, with what else it is given; nothing is installed or built here.
set -euo pipefail
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../../kx"

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
cd "$root"
for example in order_entry stock_count ledger sql_table; do
    mkdir -p "build/release/examples/$example"
    printf '#!/bin/sh\necho "%s opened: $*"\n' "$example" >"build/release/examples/$example/$example"
    chmod +x "build/release/examples/$example/$example"
done
need() { :; }
configure() { :; }
build() { echo "built: $2"; }
has_display() { true; }

demo() { (run_demo "$@" 2>&1); }
expect() { [[ "$1" == *"$2"* ]] || { printf 'expected "%s" in:\n%s\n' "$2" "$1" >&2; exit 1; }; }

expect "$(demo)" "order_entry opened: "
expect "$(demo --db x.sqlite)" "order_entry opened: --db x.sqlite"
for example in stock_count ledger sql_table; do
    expect "$(demo $example)" "built: $example"
    expect "$(demo $example count.sqlite)" "$example opened: count.sqlite"
done
expect "$(demo nonsense || true)" "no such example: nonsense"
