. tools/dev/test.sh
