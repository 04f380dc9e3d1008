# The generator works where systemd 253 and later run it: nothing can be written but /run, /sys, /proc and
# /dev/shm, and /tmp is private.

== After the boot it does its work once more, so confined, and makes the same units.
base upgrade
file /after-boot
| #!/bin/bash
| set -euo pipefail
| mv /run/systemd/system /run/of-the-boot
| rm /run/.vexapkg_*
| unshare --mount --propagation slave bash -euc '
|   findmnt -rno TARGET | while read -r directory; do
|     [[ $directory/ =~ ^/(sys|run|proc|dev/shm|tmp)/ ]] || mount -o remount,bind,ro "$directory"
|   done
|   mount -t tmpfs tmpfs /tmp
|   for file in /var/x /etc/x /dev/x /.VexaUpgradePackages/x; do
|     if touch $file 2>/dev/null; then echo "$file could be made"; fi
|   done
|   /etc/systemd/system-generators/vexa-pkg-generator normal early late
|   ls -A /tmp'
| diff -r --no-dereference /run/of-the-boot /run/systemd/system
mode /after-boot 0755
--
log pass: Alpha.vpk Beta.vpk Delta.vpk Gamma.vpk
log pass: Alpha.vpk Beta.vpk Delta.vpk Gamma.vpk
