#!/usr/bin/env bash
# Writes the sample scene and compares it byte for byte with the reference
# that another build wrote: same-scene.sh OUTPUT REFERENCE PROGRAM PLUGIN, the
# program run through the emulator given in VANTREL_EMULATOR, if any.
set -uo pipefail
output="$1" reference="$2" program="$3" plugin="$4"
if [ ! -f "$reference" ]; then
  echo "no reference scene '$reference'"
  exit 1
fi
rm -f "$output"
${VANTREL_EMULATOR:-} "$program" "$plugin" "$output" || { echo "vantrel-sample-scene failed"; exit 1; }
if ! cmp "$output" "$reference"; then
  echo "the scene differs from $reference: $(stat -c %s "$output") bytes against $(stat -c %s "$reference")"
  exit 1
fi
echo "same bytes as $reference ($(stat -c %s "$output") bytes)"
