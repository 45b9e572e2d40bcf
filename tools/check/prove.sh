# Every 37th case of the long proofs; all of them: ./dev prove.
need libmpfr-dev
workflow prove
