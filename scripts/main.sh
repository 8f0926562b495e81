#!/usr/bin/env bash
# Builds the project and runs the main job on the bundled default input.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
build_project "$VANTREL_ROOT/build"
"$VANTREL_ROOT/build/importers/sceneapi/vantrel-demo-scene" "$VANTREL_ROOT/build/demo.vnz"
# Start the plug-in in the headless host and list its commands.
"$VANTREL_ROOT/build/bin/vantrel-host" --workdir "$VANTREL_ROOT/build" commands
