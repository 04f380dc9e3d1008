== Confined as by systemd 253 and later, with nothing to write to but /run, /sys, /proc, /dev/shm and a private /tmp, the generator makes the same units.
base upgrade ; file /after-boot
| set -euo pipefail | mv /run/systemd/system /run/of-the-boot | rm /run/.vexapkg_*
| unshare --mount --propagation slave bash -euc '
|   findmnt -rno TARGET |
|     while read -r dir; do [[ $dir/ =~ ^/(sys|run|proc|dev/shm|tmp)/ ]] || mount -o remount,bind,ro "$dir"; done
|   mount -t tmpfs tmpfs /tmp
|   for dir in /var /etc /dev /.VexaUpgradePackages; do [[ ! -w $dir ]] || echo "$dir is writable"; done
|   /etc/systemd/system-generators/vexa-pkg-generator normal early late
|   ls -A /tmp'
| diff -r --no-dereference /run/of-the-boot /run/systemd/system
--
log | pass: * | pass: *
