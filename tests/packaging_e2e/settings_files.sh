#!/bin/bash
# Reading and changing the program's UTF-16LE settings files from the tests, as a user's own
# changes would leave them (saved back as UTF-16LE with its mark, CR LF lines).

_settings_edit() {  # ACTION FILE [ARGS...]
  python3 - "$@" <<'PY'
import sys
action, path, *args = sys.argv[1:]
with open(path, 'rb') as f:
    data = f.read()
text = data.decode('utf-16')
lines = text.split('\r\n')
prefix = '`````'

def key_index(key):
    for i in range(1, len(lines) - 1):
        if lines[i] == prefix + key:
            return i
    return None

if action == 'get':
    i = key_index(args[0])
    print('' if i is None else lines[i + 1].strip())
    sys.exit(0)
if action == 'set':
    i = key_index(args[0])
    if i is None:
        sys.exit('no key ' + args[0])
    lines[i + 1] = args[1]
elif action == 'drop':
    i = key_index(args[0])
    if i is None:
        sys.exit('no key ' + args[0])
    del lines[i:i + 2]
elif action == 'has-line':
    sys.exit(0 if args[0] in (l.strip() for l in lines) else 1)
elif action == 'replace-line':
    if args[0] not in lines:
        sys.exit('no line ' + args[0])
    lines[lines.index(args[0])] = args[1]
elif action == 'drop-line':
    if args[0] not in lines:
        sys.exit('no line ' + args[0])
    lines.remove(args[0])
with open(path, 'wb') as f:
    f.write(b'\xff\xfe' + '\r\n'.join(lines).encode('utf-16-le'))
PY
}

settings_value() { _settings_edit get "$1" "$2"; }
set_settings_value() { _settings_edit set "$1" "$2" "$3"; }
drop_settings_key() { _settings_edit drop "$1" "$2"; }
ini_has_line() { _settings_edit has-line "$1" "$2"; }
set_ini_line() { _settings_edit replace-line "$1" "$2" "$3"; }
drop_ini_line() { _settings_edit drop-line "$1" "$2"; }
