. tools/dev/coverage.sh
