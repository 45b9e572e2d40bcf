. tools/dev/fuzz.sh 60
