#!/usr/bin/env bash
# Rewrites zowidgets.h to include every public header that git tracks or has
# staged, so the umbrella header matches what a clean checkout holds. Headers
# in detail/ folders are private to their library and stay out.
set -euo pipefail
cd "$(dirname "$0")/.."
{
  echo '#pragma once'
  echo '// Every public header of zowidgets and its host toolkit.'
  git ls-files --cached -- 'host/*.h' 'values/*.h' 'builder/*.h' 'colour/*.h' 'fonts/*.h' 'containers/*.h' \
    'tutorials/*.h' 'logging/*.h' 'startup/*.h' 'forms/*.h' 'textentry/*.h' 'images/*.h' 'export/*.h' \
    'hints/*.h' 'editor/*.h' 'diagnostics/*.h' ':(exclude)*/detail/*' | sort | sed 's|^|#include <zowidgets/|; s|$|>|'
} > zowidgets.h
