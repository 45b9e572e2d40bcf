need pkg-config meson lintian dpkg-dev file
workflow consumers consumers-static
