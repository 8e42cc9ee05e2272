#!/usr/bin/env bash
# Seeds address parsing with a few addresses and near misses; the first byte
# picks the box pasted into, the rest is the text.
#   seeds/ip_address.sh CORPUS
set -euo pipefail
corpus=$1
n=0
for seed in '192.168.0.10' '10.0.0.1:8080' ' 255.255.255.255:65535 ' '0.0.0.0:0' '1.2.3' '1.2.3.4.5' \
  '256.1.1.1' '1.2.3.4:70000' '1.2.3.4:' '010.001.000.099' '12345678' 'ab1-2.x' '4294967297.1.1.1'; do
  { printf "\\x$(printf %02x $((n % 5)))"; printf '%s' "$seed"; } >"$corpus/seed-$n"
  n=$((n + 1))
done
