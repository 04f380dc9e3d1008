== One reload more: the generator, run again, does nothing, and touches nothing of what its first run made. Another counts the runs.
base upgrade
file /etc/systemd/system-generators/count-runs #!/bin/bash\necho run >>/run/generator-runs\n ; mode /etc/systemd/system-generators/count-runs 0755
file /after-boot
| #!/bin/bash
| touch /run/mark
| systemctl daemon-reload
| find /run/systemd/system /run/.vexapkg_* -newer /run/mark
| echo "the generators ran $(wc -l </run/generator-runs) times"
mode /after-boot 0755
--
log pass: Alpha.vpk Beta.vpk Delta.vpk Gamma.vpk
output the generators ran 4 times
show pkgctl-Alpha.service,pkgctl-Gamma.service,pkg-install-low-priority-builtin.service ActiveState=active NeedDaemonReload=no
journal 1 Finished pkg-install-high-priority-builtin.service
journal 1 Finished pkg-install-low-priority-builtin.service
journal 1 Finished pkgctl-Alpha.service
journal 1 Finished pkgctl-Gamma.service
