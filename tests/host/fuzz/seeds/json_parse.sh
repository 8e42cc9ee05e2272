#!/usr/bin/env bash
# Seeds JSON::parse with the JSON conformance corpus.
#   seeds/json_parse.sh CORPUS
set -euo pipefail
corpus=$1
seeds="$(cd "$(dirname "$0")/../../../.." && pwd)/../shared/testdata/json-conformance/test_parsing"
if [ -d "$seeds" ]; then
  cp "$seeds"/*.json "$corpus"/
else
  echo "note: no conformance corpus at $seeds; fuzzing from nothing" >&2
fi
