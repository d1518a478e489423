#!/usr/bin/env bash
# usage: check_tier_symbols.sh TIER EXPORTED_PRIMITIVES_FILE OBJECT...
# Fails when an object of the tier defines a weak symbol outside namespace TIER (the linker could
# merge it with another tier's copy), or refers to an exported primitive by its stub.
set -euo pipefail
tier=$1; exported=$2; shift 2
[ "$#" -gt 0 ] || { echo "no objects given"; exit 1; }
status=0
weak=$(nm -C --defined-only "$@" | awk '$2 ~ /^[WVu]$/ { $1=""; $2=""; sub(/^  /, ""); print }' | sort -u)
outside=$(printf '%s\n' "$weak" | grep -v -E "^(${tier}::|$)" || true)
if [ -n "$outside" ]; then
  echo "weak symbols outside namespace ${tier}:"; printf '%s\n' "$outside" | sed 's/^/  /'; status=1
fi
undefined=$(nm -u "$@" | awk '{ print $2 }' | sort -u)
stubs=$(comm -12 <(printf '%s\n' "$undefined") <(sort -u "$exported") || true)
if [ -n "$stubs" ]; then
  echo "tier ${tier} calls exported stubs instead of its own kernels:"; printf '%s\n' "$stubs" | sed 's/^/  /'; status=1
fi
count=$(printf '%s\n' "$weak" | grep -c . || true)
[ "$status" -eq 0 ] && echo "tier ${tier}: $# objects, ${count} weak symbols, all inside ${tier}::, no stub called"
exit $status
