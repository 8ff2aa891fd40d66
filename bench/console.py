"""Programs in a console of their own, timed up to what they show there."""
import fcntl
import os
import pty
import select
import signal
import struct
import termios
import time

ROWS, COLUMNS = 25, 80
PATIENCE = 30.0


SETTLING = 0.2  # seconds; what the contestant leaves behind ends meanwhile, at nobody else's cost


class ShownJob(list):
    """Arguments of a program that is timed from its start until this text is on the screen, and then ended."""

    def __init__(self, arguments, text):
        super().__init__(arguments)
        self.text = text.encode()


def seconds_until_shown(job, command, environment, folder):
    start = time.perf_counter()
    process, terminal = pty.fork()
    if process == 0:
        fcntl.ioctl(0, termios.TIOCSWINSZ, struct.pack("HHHH", ROWS, COLUMNS, 0, 0))
        os.chdir(folder)
        os.execve(command[0], command, environment | {"TERM": "xterm-256color"})
    shown = b""
    while job.text not in shown:
        if not select.select([terminal], [], [], PATIENCE)[0]:
            raise SystemExit(f"{command} does not show {job.text}, but {shown}")
        shown += os.read(terminal, 65536)
    elapsed = time.perf_counter() - start
    os.kill(process, signal.SIGKILL)
    os.close(terminal)
    os.waitpid(process, 0)
    time.sleep(SETTLING)
    return elapsed
