// The race: every lane replays the steps that the library's documented walk takes.
"use strict";

const methods = ["Bubble", "Insertion", "List insertion", "Shell", "Quicksort, cut-off 10"];
const look = 0, exchange = 1;

// A small generator, so that a size and an order always give the same numbers.
function shuffled(values) {
  let state = 2024;
  for (let i = values.length - 1; i > 0; --i) {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    const j = (state >>> 16) % (i + 1);
    [values[i], values[j]] = [values[j], values[i]];
  }
  return values;
}

function raceNumbers({size, order, kind, nan, zeros}) {
  const value = {distinct: (i) => i + 1, few: (i) => 1 + Math.floor((5 * i) / size) * (size / 5), equal: () => size / 2};
  const rising = Array.from({length: size}, (_, i) => value[kind](i));
  const orders = {
    random: () => shuffled(rising),
    ascending: () => rising,
    descending: () => rising.reverse(),
    nearly: () => rising.map((x, i) => (i % 8 === 3 && i + 1 < size ? rising[i + 1] : i % 8 === 4 ? rising[i - 1] : x)),
    organ: () => [...rising.filter((_, i) => i % 2 === 0), ...rising.filter((_, i) => i % 2).reverse()],
  };
  const numbers = orders[order]();
  if (zeros) for (let i = 1; i < size; i += 7) numbers[i] = i % 2 ? -0 : 0;
  if (nan) for (let i = 2; i < size; i += Math.max(5, Math.floor(size / 4))) numbers[i] = NaN;
  return numbers;
}

// A block of the module's memory for as long as `use` runs.
function withDoubles(zeph, numbers, use) {
  const at = zeph._malloc(8 * Math.max(1, numbers.length));
  zeph.HEAPF64.set(numbers, at / 8);
  try {
    return use(at);
  } finally {
    zeph._free(at);
  }
}

class Lane {
  constructor(zeph, method, numbers) {
    this.values = [...numbers];
    this.next = this.looks = this.moves = 0;
    withDoubles(zeph, numbers, (at) => {
      const count = zeph._zeph_trace(method, at, numbers.length);
      this.agrees = count >= 0;
      this.steps = zeph.HEAP32.slice(zeph._zeph_steps() / 4, zeph._zeph_steps() / 4 + 3 * Math.max(count, 0));
      this.left = Array.from(zeph.HEAPF64.subarray(zeph._zeph_outcome() / 8, zeph._zeph_outcome() / 8 + numbers.length));
    });
    this.lit = [];
    this.build(methods[method]);
  }

  build(title) {
    this.box = document.createElement("div");
    this.box.className = "lane";
    const heading = document.createElement("h3");
    heading.textContent = title;
    this.canvas = document.createElement("canvas");
    this.canvas.width = 480;
    this.canvas.height = 160;
    this.canvas.setAttribute("role", "img");
    this.canvas.setAttribute("aria-label", `${title}: the numbers as bars`);
    this.counts = document.createElement("p");
    this.result = document.createElement("p");
    this.box.append(heading, this.canvas, this.counts, this.result);
    document.getElementById("race-lanes").append(this.box);
  }

  get done() { return this.next >= this.steps.length; }

  step() {
    const [kind, i, j] = this.steps.subarray(this.next, this.next + 3);
    this.next += 3;
    this.lit = [i, j];
    if (kind === look) {
      ++this.looks;
    } else {
      ++this.moves;
      if (kind === exchange) [this.values[i], this.values[j]] = [this.values[j], this.values[i]];
      else this.values.splice(j, 0, this.values.splice(i, 1)[0]);
    }
    if (this.done) this.finish();
  }

  finish() {
    this.lit = [];
    const same = this.agrees && this.values.every((x, i) => Object.is(x, this.left[i]));
    this.result.textContent = `${this.outcome()}; ${same ? "the library leaves the same bits" : "THE LIBRARY LEAVES OTHER BITS"}`;
    this.result.className = same ? "good" : "bad";
    this.box.dataset.same = same;
  }

  outcome() {
    const v = this.values;
    const sorted = v.every((x, i) => i === 0 || v[i - 1] <= x);
    if (v.some(Number.isNaN)) return "NaN compares with nothing and parts the order";
    if (!sorted) return v.slice(1).every((x, i) => i === 0 || v[i] <= x) ? "the two smallest are left exchanged" : "not in order";
    return v.some((x, i) => Object.is(x, 0) && v.slice(i).some((y) => Object.is(y, -0))) ? "ascending, the zeros' signs mixed" : "ascending";
  }

  draw(colors) {
    const pen = this.canvas.getContext("2d"), {width, height} = this.canvas, n = this.values.length;
    const tallest = Math.max(...this.values.filter((x) => !Number.isNaN(x)), 1);
    pen.clearRect(0, 0, width, height);
    this.values.forEach((x, i) => {
      const h = Number.isNaN(x) ? height - 4 : 4 + (height - 8) * (x / tallest);
      pen.fillStyle = this.lit.includes(i) ? colors.look : Number.isNaN(x) ? colors.bad : Object.is(x, -0) ? colors.soft : colors.accent;
      pen.fillRect((i * width) / n, height - h, Math.max(1, width / n - 1), h);
    });
    const steps = this.steps.length / 3;
    this.counts.textContent = `${this.looks} comparisons, ${this.moves} exchanges or moves of ${steps} steps`;
  }
}

function pageColors() {
  const style = getComputedStyle(document.documentElement);
  return Object.fromEntries(["accent", "look", "bad", "soft", "line", "ink"].map((name) => [name, style.getPropertyValue(`--${name}`).trim()]));
}

function setUpRace(zeph) {
  const element = (name) => document.getElementById(`race-${name}`);
  const calm = matchMedia("(prefers-reduced-motion: reduce)");
  let lanes = [], running = false;

  const drawAll = () => lanes.forEach((lane) => lane.draw(pageColors()));
  const announce = () => {
    if (!lanes.every((lane) => lane.done)) return;
    running = false;
    const first = lanes.map((lane, i) => [lane.steps.length / 3, methods[i]]).sort((a, b) => a[0] - b[0])[0];
    element("status").textContent = `All are done; fewest steps: ${first[1]}, ${first[0]}.`;
    document.body.dataset.race = "done";
  };
  const finish = () => {
    for (const lane of lanes) {
      while (!lane.done) lane.step();
      lane.finish();
    }
    drawAll();
    announce();
  };
  const frame = () => {
    if (!running) return;
    const steps = 2 ** (Number(element("speed").value) - 1);
    for (const lane of lanes) for (let k = 0; k < steps && !lane.done; ++k) lane.step();
    drawAll();
    announce();
    requestAnimationFrame(frame);
  };
  const lineUp = () => {
    const numbers = raceNumbers({
      size: Number(element("size").value), order: element("order").value, kind: element("values").value,
      nan: element("nan").checked, zeros: element("zeros").checked,
    });
    element("lanes").replaceChildren();
    element("status").textContent = "";
    delete document.body.dataset.race;
    running = false;
    lanes = methods.map((_, i) => new Lane(zeph, i, numbers));
    lanes.filter((lane) => lane.done).forEach((lane) => lane.finish());
    drawAll();
  };
  const go = () => {
    if (calm.matches) return finish();
    if (running || lanes.every((lane) => lane.done)) return announce();
    running = true;
    requestAnimationFrame(frame);
  };
  element("form").addEventListener("submit", (event) => { event.preventDefault(); lineUp(); go(); });
  element("form").addEventListener("change", lineUp);
  element("size").addEventListener("input", () => { element("size-shown").textContent = element("size").value; });
  element("pause").addEventListener("click", () => { if (running) running = false; else go(); });
  element("finish").addEventListener("click", () => { running = false; finish(); });
  matchMedia("(prefers-color-scheme: dark)").addEventListener("change", drawAll);
  lineUp();
}
