# Archives with names that bash or systemd could misread: the package tool gets every byte unchanged.

== Two archives for each name, one of high and one of low priority, which have quoting of their own.
vpk 1High\x20\x20"double"'single'\x5c\x5c"\x5c'\x20$HOME${HOME}$$\x20$1%n%%\x5c\x20\x5cn\x5cx41;touch\x20owned;`touch\x20owned`$(touch\x20owned)&touch\x20owned&|touch\x20owned\x20#*?[a-z]{a,b}~!<>()$'x'.vpk High1 system
vpk 1Low\x20\x20"double"'single'\x5c\x5c"\x5c'\x20$HOME${HOME}$$\x20$1%n%%\x5c\x20\x5cn\x5cx41;touch\x20owned;`touch\x20owned`$(touch\x20owned)&touch\x20owned&|touch\x20owned\x20#*?[a-z]{a,b}~!<>()$'x'.vpk Low1 system
vpk 2High\nExecStartPre=touch\x20owned\ntouch\x20owned;\x01\x02\x1b\x7f\x0d\x09\x20\x20\x80\xff\xc3\x28\xed\xa0\x80\xf0ü€.vpk High2 system
vpk 2Low\nExecStartPre=touch\x20owned\ntouch\x20owned;\x01\x02\x1b\x7f\x0d\x09\x20\x20\x80\xff\xc3\x28\xed\xa0\x80\xf0ü€.vpk Low2 system
policy {"High1": {"priority": "high"}, "High2": {"priority": "high", "enable": false}, "Low2": {"enable": false}}
cpus 0-3
--
log pass:
log Load info, pkg=[1High  "double"'single'\\"\' $HOME${HOME}$$ $1%n%%\ \x5cn\x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #*?[a-z]{a,b}~!<>()$'x'.vpk]
log Load info, pkg=[1Low  "double"'single'\\"\' $HOME${HOME}$$ $1%n%%\ \x5cn\x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #*?[a-z]{a,b}~!<>()$'x'.vpk]
log Load info, pkg=[2High
log ExecStartPre=touch owned
log touch owned;\x01\x02\x1b\x7f\x0d\x09  \x80\xff\xc3(\xed\xa0\x80\xf0ü€.vpk]
log Load info, pkg=[2Low
log ExecStartPre=touch owned
log touch owned;\x01\x02\x1b\x7f\x0d\x09  \x80\xff\xc3(\xed\xa0\x80\xf0ü€.vpk]
call vexapkg install --daemon-reload 0 $'/.VexaUpgradePackages/2High\x5cnExecStartPre=touch owned\x5cntouch owned;\001\002\E\177\r\t  \200\377\303(\355\240\200\360\303\274\342\202\254.vpk'
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/1Low\ \ \"double\"\'single\'\\\\\"\\\'\ \$HOME\$\x5c{HOME\}\$\$\ \$1%n%%\\\ \\x5cn\\x5cx41\;touch\ owned\;\`touch\ owned\`\$\(touch\ owned\)\&touch\ owned\&\|touch\ owned\ #\*\?\[a-z\]\x5c{a\,b\}~\!\<\>\(\)\$\'x\'.vpk $'/.VexaUpgradePackages/2Low\x5cnExecStartPre=touch owned\x5cntouch owned;\001\002\E\177\r\t  \200\377\303(\355\240\200\360\303\274\342\202\254.vpk'
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/1High\ \ \"double\"\'single\'\\\\\"\\\'\ \$HOME\$\x5c{HOME\}\$\$\ \$1%n%%\\\ \\x5cn\\x5cx41\;touch\ owned\;\`touch\ owned\`\$\(touch\ owned\)\&touch\ owned\&\|touch\ owned\ #\*\?\[a-z\]\x5c{a\,b\}~\!\<\>\(\)\$\'x\'.vpk
call vexapkgctl enable High1
call vexapkgctl enable Low1
call vexapkgctl start High1
call vexapkgctl start Low1
show pkg-install-high-priority-builtin.service,pkg-install-low-priority-builtin.service Result=success ExecStartPre=
