#!/usr/bin/env bash
# Builds the project and runs the main job on the bundled sample: writes the
# sample model, exports it through the plug-in in the headless host and
# prints the summary of the written scene.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
build_project "$VANTREL_ROOT/build"
host="$VANTREL_ROOT/build/bin/vantrel-host"
"$host" sample "$VANTREL_ROOT/build/sample.step"
"$host" export "$VANTREL_ROOT/build/sample.step" -o "$VANTREL_ROOT/build/sample.vnz" --workdir "$VANTREL_ROOT/build"
