#!/usr/bin/env bash
# Mutation testing: how many mechanically made slips the suite catches.
#   scripts/run-mutants.sh                     every folder of the plug-in, 12 mutants each
#   scripts/run-mutants.sh state/preferences.cpp player --max 0    all mutants of these
#   scripts/run-mutants.sh --range main~2..HEAD                    lines a git range changed
#   scripts/run-mutants.sh --list                                  the draw, without running
# Builds into build-mutants/ (Debug, incrementally), runs the suite without the
# package and bench smoke tests, and prints killed / survived / equivalent per
# folder with the surviving diffs. Equivalent mutants are listed, with a
# reason, in scripts/mutants-equivalent.txt. See --help for the options.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
tuner_install_packages python3 git
exec python3 "$TUNER_SRC/scripts/mutants.py" "$@"
