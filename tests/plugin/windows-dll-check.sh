#!/usr/bin/env bash
# The plug-in DLL seen from outside with the toolchain's object dump: it
# exports the entry points and the members of xstring listed for every
# system, and imports only DLLs that come with Windows (the compiler's run
# time is linked in).  windows-dll-check.sh DLL EXPECTED_EXPORTS
set -euo pipefail
dll="$1" expected="$2"
dump="$(x86_64-w64-mingw32-objdump -p "$dll")"
status=0

exports="$(awk '/^\[Ordinal\/Name Pointer\] Table/ {on = 1; next} on && /^[ \t]*\[/ {print $NF; next} on {on = 0}' \
  <<<"$dump" | x86_64-w64-mingw32-c++filt | sort -u)"
if ! diff <(sort -u "$expected") <(echo "$exports"); then
  echo "the exports differ from $expected (< expected, > exported)"
  status=1
fi

allowed="kernel32.dll user32.dll advapi32.dll msvcrt.dll"
imports="$(sed -n 's/^\s*DLL Name: //p' <<<"$dump" | tr 'A-Z' 'a-z' | sort -u)"
for import in $imports; do
  if [[ " $allowed " != *" $import "* ]]; then
    echo "imports $import, which is no Windows system DLL"
    status=1
  fi
done
echo "exports: $(wc -l <<<"$exports"); imports: $(echo $imports)"
exit $status
