# Every public name is documented, every picture is drawn, and every program in the pages prints what
# the page says it prints.
. tools/dev/docs.sh
python3 tools/docs/run_examples.py --include include --library build/release/src \
  --work build/docs/snippets README.md docs/*.md
