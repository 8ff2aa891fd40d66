"""Benches of copying and deleting."""
import os

from contestants import BIN, both, windows

SMALL = 2_000
LARGE = 2 << 30


def small_files(folder):
    source = folder / "small"
    if not source.exists():
        source.mkdir()
        for number in range(SMALL):
            (source / f"file{number:04}.txt").write_bytes(b"some text\r\n" * (number % 300))
    return windows(source)


def copy_small(folder):
    """COPY of 2,000 small files into an empty directory"""
    source, target = small_files(folder), windows(folder / "target")
    return both(f"rd /s /q {target} 2>nul & md {target} & copy /y {source}\\* {target} >nul"), SMALL


def copy_over(folder):
    """COPY of 2,000 small files over older copies"""
    source, target = small_files(folder), windows(folder / "over")
    (folder / "over").mkdir(exist_ok=True)
    return both(f"copy /y {source}\\* {target} >nul"), SMALL


def copy_delete(folder):
    """COPY of 2,000 small files, and DEL of the copies"""
    source, target = small_files(folder), windows(folder / "deleted")
    (folder / "deleted").mkdir(exist_ok=True)
    return both(f"copy /y {source}\\* {target} >nul & del /q {target}\\*"), SMALL


def copy_large(folder):
    """COPY of one file of 2 GB, beside CopyFileEx alone"""
    source, target = folder / "large.bin", folder / "copy.bin"
    block = os.urandom(1 << 20)
    with source.open("wb") as file:
        for _ in range(LARGE >> 20):
            file.write(block)
    # Over an old copy the disk would hold both for a while, and the time be that of its cache.
    files = f"{windows(source)} {windows(target)}"
    jobs = both(f"del /q {windows(target)} >nul 2>nul & copy /y /b {files} >nul")
    jobs["CopyFileEx"] = [windows(BIN / "bench" / "copyfile.exe"), windows(source), windows(target)]
    return jobs, None


BENCHES = [copy_small, copy_over, copy_delete, copy_large]
