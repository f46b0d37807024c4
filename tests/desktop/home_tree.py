"""What stands in the thrown-away home, for tests that compare it before and after."""

import os
import pathlib

HOME = pathlib.Path(os.environ["HOME"])
TRASH = HOME / ".local/share/Trash"
#: What the desktop's own libraries and services keep for themselves.
PASSING = (TRASH, HOME / ".cache", HOME / ".config/dconf", HOME / ".local/share/gvfs-metadata")


def contents(path):
    """What tells the item from another at its place; None for a folder."""
    if path.is_symlink():
        return path.readlink()
    if not path.is_file():
        return None
    status = path.stat()
    return path.read_bytes() if status.st_size < 1_000_000 else (status.st_size, status.st_mtime_ns)


def tree():
    """Every item with its contents, but for the Trash."""
    return {str(path.relative_to(HOME)): contents(path)
            for path in HOME.rglob("*")
            if not any(path == root or root in path.parents for root in PASSING)}
