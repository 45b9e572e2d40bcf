// The same bits: zeph-selftest, a subsystem at a time, each digest beside the published one.
"use strict";

const subsystems = ["double_array", "raw_buffers", "linalg", "graphics", "containers", "algorithms"];

// "double_array   1887250 results  a07d8d2fc037a127  ok", as zeph-selftest prints it.
const digestLine = /^(.*?)\s+(\d+) results\s+([0-9a-f]{16})\s+(.*)$/;

function cell(row, text, name) {
  const td = document.createElement("td");
  td.textContent = text;
  if (name) td.className = name;
  row.append(td);
}

function showDigest(zeph, line) {
  const [, name, results, digest, verdict] = line;
  const published = zeph.ccall("zeph_published", "string", ["string"], [name]);
  const decides = !verdict.startsWith("runtime-dependent");
  const same = digest === published;
  const row = document.createElement("tr");
  row.dataset.name = name;
  cell(row, name);
  cell(row, Number(results).toLocaleString("en"), "number");
  cell(row, digest, "digest");
  cell(row, published, "digest");
  cell(row, same ? "yes" : decides ? "NO" : "the runtime's own", same ? "good" : decides ? "bad" : "note");
  document.getElementById("digests-rows").append(row);
  return same || !decides;
}

// Runs them one after another, giving the page a turn in between.
async function runDigests(zeph, printed) {
  const started = performance.now();
  let good = true, decided = 0;
  for (const name of subsystems) {
    await new Promise((next) => setTimeout(next));
    printed.length = 0;
    zeph.callMain(["--only", name]);
    for (const text of printed) {
      const line = digestLine.exec(text);
      if (!line) continue;
      good = showDigest(zeph, line) && good;
      if (!line[4].startsWith("runtime-dependent")) ++decided;
    }
    if (!document.body.dataset.firstDigest) document.body.dataset.firstDigest = performance.now().toFixed(0);
  }
  const verdict = document.getElementById("digests-verdict");
  const all = good && decided >= subsystems.length;
  verdict.textContent = all ? "Every digest that must be the same is the same, to the last bit."
    : "A digest differs: please report this browser.";
  verdict.classList.add(all ? "good" : "bad");
  document.getElementById("timing").textContent =
    `First digest ${document.body.dataset.firstDigest} ms after the page began to load; ` +
    `all of them computed in ${(performance.now() - started).toFixed(0)} ms.`;
  document.body.dataset.digests = all ? "same" : "different";
}
