#!/usr/bin/env bash
# Builds the project and runs the main job on the bundled default input.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
build_project "$VANTREL_ROOT/build"
"$VANTREL_ROOT/build/importers/sceneapi/vantrel-demo-scene" "$VANTREL_ROOT/build/demo.vnz"
