# The installed tree (cmake --install) and the ZIP (cpack): bin/, lib/, include/orv/, lib/cmake/orvbase.
