# SPDX-License-Identifier: MIT
"""Builds the varnock module with the project's own CMake build, so that pip
and CMake make the same module; see pyproject.toml."""

import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

SOURCE = pathlib.Path(__file__).parent.resolve()


def project_version():
    text = (SOURCE / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(Varnock VERSION ([0-9.]+)", text).group(1)


class CMakeExtension(Extension):
    def __init__(self, name):
        super().__init__(name, sources=[])


class CMakeBuild(build_ext):
    def build_extension(self, ext):
        build = pathlib.Path(self.build_temp).resolve() / "cmake"
        target = pathlib.Path(self.get_ext_fullpath(ext.name)).resolve()
        subprocess.run(
            ["cmake", "-S", str(SOURCE), "-B", str(build), "-G", "Ninja",
             "-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG",
             "-DPython3_EXECUTABLE=" + sys.executable,
             "-DVARNOCK_BUILD_TESTS=OFF", "-DVARNOCK_BUILD_BENCHMARKS=OFF"],
            check=True)
        subprocess.run(["cmake", "--build", str(build), "--target", "varnock_python"], check=True)
        built = list((build / "python").glob("varnock*.so"))
        if len(built) != 1:
            raise RuntimeError("the CMake build made no single varnock module: %s" % built)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(built[0], target)
        # The stubs go beside the module, where type checkers look.
        shutil.copyfile(SOURCE / "python" / "varnock.pyi", target.parent / "varnock.pyi")


# Everything setuptools writes stays in build-pip, apart from CMake's own
# build folders.
(SOURCE / "build-pip").mkdir(exist_ok=True)
setup(
    version=project_version(),
    ext_modules=[CMakeExtension("varnock")],
    cmdclass={"build_ext": CMakeBuild},
    options={"build": {"build_base": "build-pip"}, "egg_info": {"egg_base": "build-pip"}},
    zip_safe=False,
)
