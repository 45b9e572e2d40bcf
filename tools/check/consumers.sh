need pkg-config
workflow consumers consumers-static
