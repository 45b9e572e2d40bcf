// page_test.mjs PAGE-FOLDER PICTURE-FOLDER: goes through the playground as a reader would, in headless
// Chromium, from the disk and without a network; looks at texts and pixels. The last line counts.
import {strict as assert} from "node:assert";
import {mkdirSync, statSync, readdirSync} from "node:fs";
import path from "node:path";
import {chromium} from "playwright-core";

const [folder, pictures] = process.argv.slice(2).map((name) => path.resolve(name));
mkdirSync(pictures, {recursive: true});
const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM || "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
    "--disable-component-update", "--disable-sync"],
});
let passed = 0, failed = 0;

// A fresh page; every request but those for its own files is refused and counted, every error too.
async function open(options = {}) {
  const context = await browser.newContext({viewport: {width: 1280, height: 900}, ...options});
  const page = await context.newPage();
  const troubles = [];
  await context.route("**/*", (route) => {
    const url = route.request().url();
    if (url.startsWith(`file://${folder}/`)) return route.continue();
    troubles.push(`asked for ${url}`);
    return route.abort();
  });
  page.on("pageerror", (error) => troubles.push(String(error)));
  page.on("console", (message) => { if (message.type() === "error") troubles.push(message.text()); });
  await page.goto(`file://${folder}/index.html`);
  await page.waitForFunction(() => document.body.dataset.digests, null, {timeout: 60000});
  return {page, troubles, close: () => context.close()};
}

async function test(name, body, options) {
  const opened = await open(options);
  try {
    await body(opened.page);
    assert.deepEqual(opened.troubles, []);
    ++passed;
  } catch (error) {
    ++failed;
    console.log(`${name}: ${error.message}`);
  }
  await opened.close();
}

// How many pixels of a canvas are drawn, and a number that changes with what is drawn.
const drawn = (page, selector) => page.locator(selector).first().evaluate((canvas) => {
  const {data} = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height);
  let count = 0, sum = 0;
  for (let i = 0; i < data.length; i += 4) if (data[i + 3]) { ++count; sum = (sum * 31 + i + data[i]) % 1e9; }
  return {count, sum};
});
const bodyText = (page, id) => page.locator(`#${id}`).innerText();

await test("every digest is the published one", async (page) => {
  assert.equal(await page.getAttribute("body", "data-digests"), "same");
  assert.match(await bodyText(page, "digests-verdict"), /^Every digest .* to the last bit\.$/);
  const names = await page.locator("#digests-rows tr").evaluateAll((rows) => rows.map((row) => row.dataset.name));
  for (const name of ["double_array", "raw_buffers", "linalg", "graphics", "containers", "algorithms"])
    assert.ok(names.includes(name), name);
  for (const name of names) {
    const cells = await page.locator(`tr[data-name="${name}"] td`).allInnerTexts();
    assert.match(cells[2], /^[0-9a-f]{16}$/);
    assert.equal(cells[2], cells[3], name);
    assert.equal(cells[4], "yes", name);
  }
  console.log(await bodyText(page, "timing"));
  await page.screenshot({path: `${pictures}/light.png`, fullPage: true});
});

await test("the race ends, and every lane leaves the library's bits, whatever the numbers", async (page) => {
  for (const order of ["random", "ascending", "descending", "nearly", "organ"])
    for (const values of ["distinct", "few", "equal"])
      for (const [nan, zeros] of [[false, false], [true, false], [false, true], [true, true]]) {
        await page.selectOption("#race-order", order);
        await page.selectOption("#race-values", values);
        await page.setChecked("#race-nan", nan);
        await page.setChecked("#race-zeros", zeros);
        await page.click("#race-finish");
        const same = await page.locator(".lane").evaluateAll((lanes) => lanes.map((lane) => lane.dataset.same));
        assert.deepEqual(same, Array(5).fill("true"), `${order}, ${values}, NaN ${nan}, zeros ${zeros}`);
      }
});

await test("the race runs step by step and can be paused", async (page) => {
  await page.locator("#race-size").fill("96");
  await page.locator("#race-speed").fill("1");
  const before = await drawn(page, ".lane canvas");
  assert.ok(before.count > 1000);
  await page.click("#race-form button[type=submit]");
  await page.waitForFunction(() => /^[1-9]/.test(document.querySelector(".lane p").textContent));
  await page.click("#race-pause");
  const paused = await bodyText(page, "race-lanes");
  await page.waitForTimeout(200);
  assert.equal(await bodyText(page, "race-lanes"), paused);
  await page.screenshot({path: `${pictures}/race.png`});
  await page.click("#race-finish");
  assert.match(await bodyText(page, "race-status"), /fewest steps: /);
  assert.notDeepEqual(await drawn(page, ".lane canvas"), before);
});

await test("two numbers out of order stay so in the bubble sort", async (page) => {
  await page.locator("#race-size").fill("4");
  await page.selectOption("#race-order", "descending");
  await page.click("#race-finish");
  assert.match(await page.locator(".lane").first().innerText(), /the two smallest are left exchanged/);
});

await test("the solid turns by keys and by dragging, and changes its projection", async (page) => {
  const canvas = page.locator("#solid-canvas");
  const start = await drawn(page, "#solid-canvas"), matrix = await bodyText(page, "solid-matrix");
  assert.ok(start.count > 1000);
  await canvas.focus();
  await page.keyboard.press("ArrowRight");
  assert.match(await bodyText(page, "solid-angles"), /about y 43°/);
  assert.notEqual(await bodyText(page, "solid-matrix"), matrix);
  assert.notEqual((await drawn(page, "#solid-canvas")).sum, start.sum);
  await canvas.scrollIntoViewIfNeeded();
  const box = await canvas.boundingBox();
  await page.mouse.move(box.x + 100, box.y + 100);
  await page.mouse.down();
  await page.mouse.move(box.x + 140, box.y + 120);
  await page.mouse.up();
  assert.match(await bodyText(page, "solid-angles"), /About x 35°, about y 63°/);
  await page.check("input[name=projection][value='0']");
  assert.match(await bodyText(page, "solid-matrix"), /0\.00000\s+0\.00000\s+0\.00000\s+1\.00000$/);
  await page.click("#solid-reset");
  assert.match(await bodyText(page, "solid-angles"), /About x 25°, about y 38°/);
});

await test("a product is right, and what cannot be multiplied is said", async (page) => {
  const wanted = [[1, 2], [3, 4]].map(([a, b]) => [[0.1, 0.4], [0.2, 0.5], [0.3, 0.6]].map(([x, y]) => a * x + b * y));
  assert.equal((await bodyText(page, "product-result")).replace(/\s+/g, " "), wanted.flat().join(" "));
  await page.fill("#product-left", "1, nan\n-inf;4");
  await page.fill("#product-right", "1\n2");
  await page.click("#product-form button");
  assert.equal((await bodyText(page, "product-result")).replace(/\s+/g, " "), "NaN -Infinity");
  for (const [left, message] of [["1 2 3", /must be as many/], ["1 x", /“x” is not a number/], ["", /no numbers/], ["1\n1 2", /different lengths/]]) {
    await page.fill("#product-left", left);
    await page.click("#product-form button");
    assert.match(await bodyText(page, "product-message"), message);
  }
});

await test("a line is fitted and drawn", async (page) => {
  await page.fill("#line-points", "0 1\n1 3\n2 5");
  await page.click("#line-form button");
  assert.equal(await bodyText(page, "line-message"), "y = 1 + 2 x");
  assert.ok((await drawn(page, "#line-canvas")).count > 200);
  await page.fill("#line-points", "1 1\n1 2");
  await page.click("#line-form button");
  assert.match(await bodyText(page, "line-message"), /All points stand above one x/);
});

await test("orderings are listed", async (page) => {
  await page.fill("#orderings-word", "abc");
  await page.keyboard.press("Enter");
  assert.equal((await page.locator("#orderings-result").textContent()).trim().split(/\s+/).join(" "), "abc acb bac bca cba cab");
  assert.match(await bodyText(page, "orderings-message"), /^6 orderings/);
  await page.fill("#orderings-word", "a1");
  await page.keyboard.press("Enter");
  assert.match(await bodyText(page, "orderings-message"), /letters of a to z/);
});

await test("every control is reached by the keyboard", async (page) => {
  const reached = new Set();
  for (let i = 0; i < 60; ++i) {
    await page.keyboard.press("Tab");
    reached.add(await page.evaluate(() => document.activeElement.id || document.activeElement.textContent.trim()));
  }
  for (const id of ["race-size", "race-order", "race-values", "race-nan", "race-zeros", "race-speed", "race-pause", "race-finish",
    "solid-canvas", "solid-reset", "product-left", "product-right", "line-points", "orderings-word"])
    assert.ok(reached.has(id), id);
});

await test("a phone's width scrolls in one direction only", async (page) => {
  const width = await page.evaluate(() => document.documentElement.scrollWidth);
  assert.ok(width <= 360, `the page is ${width} pixels wide`);
  await page.screenshot({path: `${pictures}/phone.png`, fullPage: true});
}, {viewport: {width: 360, height: 740}, hasTouch: true, isMobile: true});

await test("dark and light differ, and text stands out in both", async (page) => {
  const ground = () => page.evaluate(() => getComputedStyle(document.body).backgroundColor);
  const dark = await ground();
  await page.screenshot({path: `${pictures}/dark.png`, fullPage: true});
  await page.emulateMedia({colorScheme: "light"});
  assert.notEqual(await ground(), dark);
}, {colorScheme: "dark"});

await test("with reduced motion the race shows its end at once", async (page) => {
  await page.click("#race-form button[type=submit]");
  assert.equal(await page.getAttribute("body", "data-race"), "done");
}, {reducedMotion: "reduce"});

await browser.close();
const bytes = readdirSync(folder).reduce((sum, name) => sum + statSync(path.join(folder, name)).size, 0);
console.log(`the page's files: ${bytes} bytes`);
console.log(`${passed} passed, ${failed} failed`);
process.exit(failed ? 1 : 0);
