"""What can be at a path in place of the file that should be there. Each function makes it and returns the path."""
import os
import socket


def directory(path, _):
    os.mkdir(path)
    return path


def fifo(path, _):
    os.mkfifo(path)
    return path


def unix_socket(path, _):
    server = socket.socket(socket.AF_UNIX)
    server.bind(path)
    server.close()
    return path


def link_to_nothing(path, _):
    os.symlink("nothing", path)
    return path


def link_to_itself(path, _):
    os.symlink(os.path.basename(path), path)
    return path


def link_to_a_directory(path, _):
    os.symlink("/", path)
    return path


def below_a_file(path, _):
    with open(path, "wb"):
        return path + "/below"


def name_too_long(path, _):
    return path + "x" * 300


def path_too_long(path, _):
    return path + "/x" * 3000


def missing_with_an_odd_name(path, random):
    return path + random.choice(["\n", "\x1b[31m", "\u202e", "a b", "'", "%s"])


# By links of our own: a service that wrote there would replace the link.
def device(path, random):
    os.symlink(random.choice(["/dev/zero", "/dev/full", "/dev/null", "/dev/urandom", "/dev/tty", "/dev/ptmx"]), path)
    return path


def file_of_the_system(path, random):
    os.symlink(random.choice(["/proc/self/mem", "/proc/self/maps", "/proc/self/environ", "/etc/passwd"]), path)
    return path


def huge(path, random):
    with open(path, "wb") as file:
        file.write(b"{")
        file.truncate(random.choice([(16 << 20) + 1, 65 << 20, 20 << 30]))
    return path


def unreadable(path, _):
    with open(path, "wb") as file:
        file.write(b"{}")
    os.chmod(path, 0)
    return path


def in_an_unreadable_directory(path, _):
    os.mkdir(path, 0)
    return path + "/file"


WAYS = [directory, fifo, unix_socket, link_to_nothing, link_to_itself, link_to_a_directory, below_a_file, name_too_long,
        path_too_long, missing_with_an_odd_name, device, file_of_the_system, huge, unreadable,
        in_an_unreadable_directory]


def put(path, random):
    """Returns the name of a way and the path that it made."""
    way = random.choice(WAYS)
    return way.__name__, way(path, random)
