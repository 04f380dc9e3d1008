== Confined as by systemd 253 and later, with nothing to write to but /run, /sys, /proc, /dev/shm and a private /tmp, the generator makes the same units.
base upgrade
file /after-boot
| set -euo pipefail
| mv /run/systemd/system /run/of-the-boot
| rm /run/.vexapkg_*
| unshare --mount --propagation slave bash -euc '
|   findmnt -rno TARGET | while read -r directory; do
|     [[ $directory/ =~ ^/(sys|run|proc|dev/shm|tmp)/ ]] || mount -o remount,bind,ro "$directory"
|   done
|   mount -t tmpfs tmpfs /tmp
|   for directory in /var /etc /dev /.VexaUpgradePackages; do [[ ! -w $directory ]] || echo "$directory is writable"; done
|   /etc/systemd/system-generators/vexa-pkg-generator normal early late
|   ls -A /tmp'
| diff -r --no-dereference /run/of-the-boot /run/systemd/system
--
log pass: * ; log pass: *
