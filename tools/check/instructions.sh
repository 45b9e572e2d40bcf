# A fixed workload per family, its instructions compared with tools/instructions.txt.
. tools/dev/instructions.sh
