# Sixty mutants; every one: ./dev mutants --sample 0. So few may meet several that nobody has explained yet.
. tools/dev/mutants.sh --quick --sample 60 --seed 1 --least 90 && echo "1 passed, 0 failed"
