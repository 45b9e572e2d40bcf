# Every public name is documented and in the index, every picture is drawn, and every program in the pages prints what
# the page says it prints.
. tools/dev/docs.sh
python3 tools/docs/check_index.py build/docs/index.tag tools/manifests/elf.txt
python3 tools/docs/run_examples.py --include include --library build/release/src \
  --work build/docs/snippets README.md docs/*.md
python3 tools/docs/run_header_examples.py --include include --library build/release/src --work build/docs/snippets
