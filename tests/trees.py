"""Trees that text files describe; README.md has the format."""
import gzip, json, os, re, shutil, stat, sys, tarfile
from pathlib import Path

UPGRADE, HOST_UNITS = "/.VexaUpgradePackages/", b"/usr/lib/systemd/system"
FILES = {"policy": "file /usr/vexa/etc/builtin-policy.json", "cpus": "file /sys/devices/system/cpu/online"}
os.umask(0o022)  # a tree is the same for everybody


def decode(text):
    plain = lambda text: re.sub(rb"\\x([0-9a-f]{2})", lambda m: bytes.fromhex(m[1].decode()), os.fsencode(text))
    parts = [*re.split(r"(?s)\\\{(.*?)\*(\d+)\}", text.replace("\\n", "\n")), "", 0]
    return b"".join(plain(text) + plain(again) * int(times) for text, again, times in zip(*[iter(parts)] * 3))


def encode(data):
    text = re.sub(r"\\(?=n|x[0-9a-f]{2}|\{)", r"\\x5c", data.decode("latin-1")).replace("\n", "\\n")
    text = re.sub(r"[^ -~]|^ | $| (?=[;|] )", lambda m: f"\\x{ord(m[0]):02x}", text)
    return re.sub(r"([^\\])\1{29,}", lambda m: f"\\{{{m[1]}*{len(m[0])}}}", text)


def in_order(words):
    return " ".join(sorted(words, key=decode))


def read(path):
    """The trees of a file: the number of its line, title, lines before and lines after "--"."""
    def lines(text):
        text = re.sub(r"\n\| | \| ", "\0", re.sub(r"(?m)^#.*\n", "", text or ""))
        return [line.replace("\0", "\n") for line in re.split(r"\n| ; ", text) if line]

    text = Path(path).read_text("utf-8")
    trees = re.finditer(r"^== (.*)\n((?:(?!== |--$).*\n)*)(?:--\n((?:(?!== ).*\n)*))?", text, re.M)
    common = lines(re.split("(?m)^== ", text)[0])
    return [(text.count("\n", 0, tree.start()) + 1, tree[1], common + lines(tree[2]), lines(tree[3])) for tree in trees]


def like(pattern):
    """The expression of a line in which an ellipsis stands for anything."""
    return re.compile(".*".join(map(re.escape, pattern.split("\u2026"))))


def build(root, lines):
    """Makes a tree; yields when all is there that a run is to find: its arguments, and the calls that fail in it."""
    def new(path):
        path = root + path.replace(HOST_UNITS, b"/../units", 1)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        if os.path.lexists(path):
            (shutil.rmtree if os.path.isdir(path) and not os.path.islink(path) else os.remove)(path)
        return path

    archives, root, inject = {}, os.fsencode(root), ""
    write = lambda path, content: Path(os.fsdecode(new(path))).write_bytes(content)
    make = {"link": lambda path, target: os.symlink(target, new(path)), "file": write,
            "dir": lambda path, _: os.makedirs(new(path)), "fifo": lambda path, _: os.mkfifo(new(path)),
            "mode": lambda path, mode: os.chmod(root + path, int(mode, 8)), "gone": lambda path, _: new(path)}
    for line in lines if any(re.match("run( |$)", line) for line in lines) else [*lines, "run"]:
        line = re.sub("^(policy|cpus)(?= )", lambda m: FILES[m[1]], line)
        kind, first, text = (re.split("[ \n]", line, maxsplit=2) + ["", ""])[:3]
        name, content = decode(first), decode(text)
        path, archive = name if name[:1] == b"/" else UPGRADE.encode() + name, archives.setdefault(name, bytearray())
        if kind == "run" and first in ("", "with"):
            yield text.split() if first else ["normal", "early", "late"], inject
        elif kind == "inject":
            inject = first
        elif kind in make:
            make[kind](path, content)
        elif kind in ("cut", "gzip"):
            write(path, archive[:int(text)] if text else gzip.compress(archive + bytes(1024)))
        elif kind not in ("vpk", "member"):
            sys.exit(f"What is {kind}?")
        else:
            member, options, data = ("INFO", "", text) if kind == "vpk" else re.fullmatch(
                r"(\S+)((?: (?:type|size|link)=\S+)*) ?(.*)", text).groups()
            content, options = decode(data), dict(option.split("=") for option in options.split())
            if kind == "vpk" and not text.startswith("{"):
                package, placement, *units = (content.decode() + " -" * (" " not in text)).split(" ")
                keys = {"name": package, "placement": placement, "prerequisite_units": units}
                content = json.dumps({key: value for key, value in keys.items() if value not in ("-", [])}).encode()
            info = tarfile.TarInfo(os.fsdecode(decode(member)))
            info.type, info.linkname = options.get("type", "0").encode(), options.get("link", "")
            info.size = int(options.get("size", len(content)))
            archive += info.tobuf(tarfile.GNU_FORMAT, "utf-8", "surrogateescape") + content + bytes(-len(content) % 512)
            write(path, archive + bytes(1024))


def listing(root, top):
    """What is below a directory of a tree: {path: (the lines that make it, its content)}."""
    found, root = {}, os.fsencode(root)
    for path in (os.path.join(each[0], name) for each in os.walk(root + top) for name in each[1] + each[2]):
        name, mode, may_read = encode(path[len(root):]), os.lstat(path).st_mode, os.access(path, os.R_OK)
        kind = {"-": "file", "l": "link", "d": "dir", "p": "fifo"}[stat.filemode(mode)[0]]
        content = Path(os.fsdecode(path)).read_bytes() if kind == "file" and may_read else b""
        text = encode(os.readlink(path) if kind == "link" else content[:4096])
        lines = [f"{kind} {name} {text}".rstrip(" ")] * (kind != "dir" or not may_read or not os.listdir(path))
        if kind != "link" and mode & 0o7777 != (0o755 if kind == "dir" else 0o644):
            lines.append(f"mode {name} {mode & 0o7777:04o}")
        if lines:
            found[name] = lines, content
    return found


def lay_down(work, generator, lines):
    """As build does, the tree of a sandbox with a generator, and a directory for its host's units."""
    for path in "root/opt", "root/run", "root/tmp", "root/var", "root/usr/vexa", "units":
        os.makedirs(f"{work}/{path}", exist_ok=True)
    shutil.copy(generator, f"{work}/root/opt/generator")
    return build(f"{work}/root", ["cpus 0-3", *lines])
