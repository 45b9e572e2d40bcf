// Loads the module, then starts the experiments; the digests last, since they compute for a second.
"use strict";

(async () => {
  const printed = [];
  try {
    const zeph = await createZeph({print: (line) => printed.push(line), printErr: (line) => console.warn(line)});
    setUpRace(zeph);
    setUpSolid(zeph);
    setUpProduct(zeph);
    setUpLine(zeph);
    setUpOrderings(zeph);
    await runDigests(zeph, printed);
  } catch (error) {
    const verdict = document.getElementById("digests-verdict");
    verdict.textContent = `This browser could not run the library: ${error.message || error}`;
    verdict.classList.add("bad");
    document.body.dataset.digests = "failed";
    throw error;
  }
})();
