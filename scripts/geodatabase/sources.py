"""Gets single files out of packages of npm and Debian, through their own clients as the machine has them set up."""
import os
import shutil
import subprocess
import tarfile
import tempfile
from dataclasses import dataclass
from pathlib import Path

TIME_LIMIT = 300  # s, of one download


class Unavailable(Exception):
    """A package that can't be had; the text says why."""


@dataclass(frozen=True)
class Package:
    """Where data come from, and what may be done with them."""
    name: str
    registry: str  # "npm" or "Debian"
    version: str   # empty: the one of the Debian release
    data: str
    licence: str


class Sources:
    """Files of packages. Each is looked for in the folder of what was got before, then, of a Debian package, among what is
    installed, and then downloaded into the folder."""

    def __init__(self, folder, online=True):
        self._folder = Path(folder)
        self._online = online
        self._archives = {}
        self._failed = {}
        self._downloads = tempfile.TemporaryDirectory(prefix="geodatabase-")

    def close(self):
        """Removes what was downloaded, but for the files in the folder."""
        self._downloads.cleanup()

    def file(self, package, path):
        """The place of a file of a package, named as in the package; of a shapefile, its table stands beside it."""
        wanted = [path] + ([path[:-4] + ".dbf"] if path.endswith(".shp") else [])
        here = self._folder / package.name
        places = [here] + ([Path("/")] if package.registry == "Debian" and self._online else [])
        for place in places:
            if all((place / name).is_file() for name in wanted):
                return place / path
        if package.name in self._failed:
            raise Unavailable(self._failed[package.name])
        try:
            self._unpack(package, here, wanted)
        except (OSError, subprocess.SubprocessError, tarfile.TarError, KeyError) as error:
            detail = (getattr(error, "stderr", None) or str(error)).strip().splitlines()
            self._failed[package.name] = f"{package.name} of {package.registry}: {detail[-1] if detail else error}"
            raise Unavailable(self._failed[package.name]) from error
        return here / path

    def _unpack(self, package, here, wanted):
        if not self._online:
            raise OSError(f"not in {self._folder}, and nothing is downloaded")
        if package.name not in self._archives:
            download = self._from_npm if package.registry == "npm" else self._from_debian
            self._archives[package.name] = download(package, Path(self._downloads.name))
        archive = self._archives[package.name]
        with tarfile.open(archive) as content:
            for name in wanted:
                target = here / name
                target.parent.mkdir(parents=True, exist_ok=True)
                part = target.with_name(target.name + ".part")
                with content.extractfile(self._member(content, name)) as inside, open(part, "wb") as outside:
                    shutil.copyfileobj(inside, outside)
                part.replace(target)

    @staticmethod
    def _member(content, name):
        for known in (f"package/{name}", f"./{name}"):
            try:
                return content.getmember(known)
            except KeyError:
                continue
        raise KeyError(f"{name} isn't in the package")

    @staticmethod
    def _from_npm(package, downloads):
        _run(["npm", "pack", "--silent", "--fetch-retries=1", "--fetch-timeout=60000", f"{package.name}@{package.version}"],
             downloads)
        return next(downloads.glob(f"{package.name}-*.tgz"))

    @staticmethod
    def _from_debian(package, downloads):
        # Lists of our own, so that a machine whose lists are empty or old needs no rights of root for this.
        lists = downloads / "apt"
        own = ["-o", f"Dir::State::Lists={lists}/lists", "-o", f"Dir::Cache={lists}/cache", "-o", "APT::Sandbox::User="]
        try:
            _run(["apt-get", "-q", "-o", "APT::Sandbox::User=", "download", package.name], downloads)
        except subprocess.SubprocessError:
            for folder in ("lists/partial", "cache/archives/partial"):
                (lists / folder).mkdir(parents=True, exist_ok=True)
            _run(["apt-get", "-q", *own, "update"], downloads)
            _run(["apt-get", "-q", *own, "download", package.name], downloads)
        deb = next(downloads.glob(f"{package.name}_*.deb"))
        archive = deb.with_suffix(".tar")
        with open(archive, "wb") as content:
            subprocess.run(["dpkg-deb", "--fsys-tarfile", deb], stdout=content, stderr=subprocess.PIPE, check=True,
                           timeout=TIME_LIMIT)
        deb.unlink()
        return archive


def _run(command, folder):
    subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                   check=True, timeout=TIME_LIMIT, env={**os.environ, "LC_ALL": "C.UTF-8"})
