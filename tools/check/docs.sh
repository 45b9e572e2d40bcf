# The pages' tables are those of docs/data; every public name is documented, in the index and used by an example; every
# picture is drawn; every program in the pages, and every example, prints or gives the result beside it.
. tools/dev/docs.sh
python3 -B tools/docs/figures.py --check
python3 tools/docs/check_index.py build/docs/index.tag tools/manifests/elf.txt
python3 tools/docs/run_examples.py --include include --library build/release/src \
  --work build/docs/snippets README.md docs/*.md
python3 tools/docs/run_header_examples.py --include include --library build/release/src --work build/docs/snippets \
  --manifest tools/manifests/elf.txt
