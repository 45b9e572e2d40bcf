# Every mistake of tools/mutants/by_hand against its tests; about half an hour. Not part of the integration.
. tools/dev/mutants.sh --by-hand --check
