# Every 37th case of the long proofs, or every ZEPH_PROVE_EVERY-th; all of them: ./dev prove.
need libmpfr-dev
workflow prove
awk '/^[0-9]+ cases, / {print; cases += $1; comparisons += $3; differences += $5}
  END {print cases " cases, " comparisons " comparisons with the literal steps, " differences " differences"}' build/results/prove.xml
