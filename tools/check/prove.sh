awk '/^[0-9]+ cases, / {print; cases += $1; comparisons += $3; differences += $5}
  END {print cases " cases, " comparisons " comparisons with the literal steps, " differences " differences"}' build/results/prove.xml
