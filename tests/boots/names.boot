== Archives of both priorities with a name that bash or systemd could misread: the package tool gets every byte unchanged.
vpk High\x20\x20"double"'single'\x5c\x5c"\x5c'\x20$HOME${HOME}$$\x20$1%n%%\x5c\x20\x5cn\x5cx41;touch\x20owned;`touch\x20owned`$(touch\x20owned)&touch\x20owned&|touch\x20owned\x20#*?[a-z]{a,b}~!<>()$'x'\nExecStartPre=touch\x20owned;touch\x20owned;\x01\x1b\x7f\x0d\x09\xff\xc3\x28\xf0ü€.vpk High system
vpk Low\x20\x20"double"'single'\x5c\x5c"\x5c'\x20$HOME${HOME}$$\x20$1%n%%\x5c\x20\x5cn\x5cx41;touch\x20owned;`touch\x20owned`$(touch\x20owned)&touch\x20owned&|touch\x20owned\x20#*?[a-z]{a,b}~!<>()$'x'\nExecStartPre=touch\x20owned;touch\x20owned;\x01\x1b\x7f\x0d\x09\xff\xc3\x28\xf0ü€.vpk Low system
policy {"High": {"priority": "high"}, "Low": {"enable": false}} ; cpus 0-3
--
log pass:
log Load info, pkg=[High  "double"'single'\\"\' $HOME${HOME}$$ $1%n%%\ \x5cn\x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #*?[a-z]{a,b}~!<>()$'x'
log ExecStartPre=touch owned;touch owned;\x01\x1b\x7f\x0d\x09\xff\xc3(\xf0ü€.vpk]
log Load info, pkg=[Low  "double"'single'\\"\' $HOME${HOME}$$ $1%n%%\ \x5cn\x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #*?[a-z]{a,b}~!<>()$'x'
log ExecStartPre=touch owned;touch owned;\x01\x1b\x7f\x0d\x09\xff\xc3(\xf0ü€.vpk]
call vexapkg install --daemon-reload 0 $'/.VexaUpgradePackages/High  "double"\'single\'\\\\"\\\' $HOME${HOME}$$ $1%n%%\\ \\x5cn\\x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #*?[a-z]{a,b}~!<>()$\'x\'\x5cnExecStartPre=touch owned;touch owned;\001\E\177\r\t\377\303(\360\303\274\342\202\254.vpk'
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs $'/.VexaUpgradePackages/Low  "double"\'single\'\\\\"\\\' $HOME${HOME}$$ $1%n%%\\ \\x5cn\\x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #*?[a-z]{a,b}~!<>()$\'x\'\x5cnExecStartPre=touch owned;touch owned;\001\E\177\r\t\377\303(\360\303\274\342\202\254.vpk'
call vexapkgctl enable High
call vexapkgctl start High
show pkg-install-high-priority-builtin.service,pkg-install-low-priority-builtin.service Result=success ExecStartPre=
