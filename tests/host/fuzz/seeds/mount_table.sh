#!/usr/bin/env bash
# Seeds the mount table reader with lines of every kind: the root, a home
# drive, a card with an escaped space, the system's own mounts, a snap, a
# mount point given twice and lines cut short.
#   seeds/mount_table.sh CORPUS
set -euo pipefail
corpus=$1
printf '25 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n26 25 8:3 / /home rw - ext4 /dev/sda3 rw\n' >"$corpus/seed-0"
printf '28 25 8:17 / /media/ann/CARD\\0401 rw - exfat /dev/sdb1 rw\n22 1 0:21 / /proc rw - proc proc rw\n' >"$corpus/seed-1"
printf '29 25 7:0 / /snap/core/1 ro - squashfs /dev/loop0 ro\n30 25 8:33 / /run/media/a/D rw - ext4 /dev/sdc1 rw\n' >"$corpus/seed-2"
printf '26 25 8:3 / /home rw - ext4 /dev/sda3 rw\n31 25 8:3 / /home rw shared:3 - ext4 /dev/sda3 rw\n' >"$corpus/seed-3"
printf '1 2 3 4\n- - -\n5 6 7:8 / x rw - ext4 /dev/x rw\n\\\\\\0\n' >"$corpus/seed-4"
