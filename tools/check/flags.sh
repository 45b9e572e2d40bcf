workflow "flags${ZEPH_FLAGS:+-$ZEPH_FLAGS}"
