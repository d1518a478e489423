#!/usr/bin/env bash
# usage: check_exported_symbols.sh LIBRARY EXPORTED_PRIMITIVES_FILE PUBLIC_SYMBOLS_FILE
# Every dynamic symbol the library defines must be public: an exported primitive, a name listed
# in PUBLIC_SYMBOLS_FILE (one extended regular expression a line, matched against the
# demangled name), and every exported primitive must be there.
set -euo pipefail
library=$1; exported=$2; public=$3
defined=$(nm -D --defined-only "$library" | awk '$2 ~ /^[TDBRVWi]$/ { print $3 }' | sort -u)
status=0
missing=$(comm -23 <(sort -u "$exported") <(printf '%s\n' "$defined"))
if [ -n "$missing" ]; then echo "primitives not exported:"; printf '%s\n' "$missing" | sed 's/^/  /'; status=1; fi
patterns=$(grep -v -E '^(#|$)' "$public" | paste -sd'|')
unexpected=$(comm -23 <(printf '%s\n' "$defined") <(sort -u "$exported") | while read -r sym; do
  name=$(printf '%s' "$sym" | c++filt)
  printf '%s\n' "$name" | grep -q -E "^(${patterns})$" || printf '%s\n' "$name"
done)
if [ -n "$unexpected" ]; then echo "exported but not public:"; printf '%s\n' "$unexpected" | sed 's/^/  /'; status=1; fi
echo "$(printf '%s\n' "$defined" | wc -l) exported symbols checked"
exit $status
