"""A Conan 2 recipe, not run here."""
import os

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class ZEPHDataStructureEngine(ConanFile):
    name = "zephdatastructureengine"
    license = "MIT"
    description = "Numeric data structures and classic algorithms, exact to the last bit"
    settings = "os", "compiler", "build_type", "arch"
    options = {"shared": [True, False], "portable_math": [True, False]}
    default_options = {"shared": True, "portable_math": False}

    def export_sources(self):
        tree = os.path.join(self.recipe_folder, "..", "..")
        for pattern in ("CMakeLists.txt", "LICENSE", "*.md", "cmake/*", "docs/*", "include/*", "src/*",
                        "tools/debugger/*", "tools/selftest/*", "tools/system_speed/*"):
            copy(self, pattern, tree, self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["ZEPH_SHARED"] = bool(self.options.shared)
        toolchain.cache_variables["ZEPH_PORTABLE_MATH"] = bool(self.options.portable_math)
        toolchain.cache_variables["ZEPH_BUILD_TESTS"] = False
        toolchain.cache_variables["ZEPH_BUILD_EXAMPLES"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        # The package file of the library itself serves find_package.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "ZEPHDataStructureEngine")]
