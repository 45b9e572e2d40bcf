# Reads ctest's JUnit file: names what was skipped, with its reason, and what failed; the last line counts. A
# GoogleTest program, one test of it or a program of our own counts as many tests as its own last words say.
/<testcase / {
  name = $0; sub(/.* classname="/, "", name); sub(/" time=.*/, "", name)
  status = $0; sub(/.* status="/, "", status); sub(/".*/, "", status)
  good = bad = counted = told = 0; reason = ""
}
/<system-out>/ { sub(/.*<system-out>/, "") }
{ gsub(/\r|&#x0?[dD];|&#13;/, "") }
/^\[ RUN      \]/ { reason = ""; heard = 0 }
heard && !reason && !/^\[/ { reason = $0 }
/: Skipped$/ { heard = 1 }
/^\[  SKIPPED \].*ms\)$/ { print "skipped: " $4 (reason ? ": " reason : ""); told = 1 }
/^\[  PASSED  \] [0-9]+ test/ { good = $4; counted = 1 }
/^\[  FAILED  \] [0-9]+ test/ { bad = $4; counted = 1 }
/^[0-9]+ passed, [0-9]+ failed$/ { good = $1; bad = $3; counted = 1 }
/<\/testcase>/ {
  if (status == "run" && !counted) good = 1
  if (status != "run" && status != "notrun" && bad == 0) bad = 1
  if (status == "notrun" && !counted && !told) print "skipped: " name
  if (bad) print "failed: " name
  passed += good
  failed += bad
}
END {
  print passed + 0 " passed, " failed + 0 " failed"
}
