// The reader's numbers: a product, a line, and the orderings of a word.
"use strict";

// Rows of numbers from pasted text; blanks, commas, semicolons and tabs part them.
function readRows(text, what) {
  const rows = text.split("\n").map((line) => line.trim()).filter(Boolean)
    .map((line) => line.split(/[\s,;]+/).filter(Boolean).map((word) => {
      const value = /^[-+]?(inf|infinity)$/i.test(word) ? (word[0] === "-" ? -Infinity : Infinity) : Number(word);
      if (Number.isNaN(value) && !/^[-+]?nan$/i.test(word)) throw new Error(`${what}: “${word}” is not a number`);
      return value;
    }));
  if (!rows.length) throw new Error(`${what}: no numbers`);
  if (rows.some((row) => row.length !== rows[0].length)) throw new Error(`${what}: the rows are of different lengths`);
  if (rows.length > 200 || rows[0].length > 200) throw new Error(`${what}: at most 200 rows and columns, please`);
  return rows;
}

function say(place, text, bad) {
  const element = document.getElementById(place);
  element.textContent = text;
  element.className = bad ? "bad" : "";
}

function onSubmit(form, message, work) {
  document.getElementById(form).addEventListener("submit", (event) => {
    event.preventDefault();
    try {
      work();
    } catch (error) {
      say(message, error.message, true);
    }
  });
}

function setUpProduct(zeph) {
  const body = document.getElementById("product-result");
  const multiply = () => {
    body.replaceChildren();
    const left = readRows(document.getElementById("product-left").value, "Left");
    const right = readRows(document.getElementById("product-right").value, "Right");
    if (left[0].length !== right.length)
      throw new Error(`Left has ${left[0].length} columns, right ${right.length} rows: they must be as many`);
    const n = left.length, k = right.length, m = right[0].length;
    const entries = withDoubles(zeph, left.flat(), (a) => withDoubles(zeph, right.flat(), (b) => {
      const at = zeph._zeph_product(a, b, n, k, m) / 8;
      return Array.from(zeph.HEAPF64.subarray(at, at + n * m));
    }));
    body.append(...left.map((_, i) => {
      const row = document.createElement("tr");
      for (let j = 0; j < m; ++j) cell(row, String(entries[i * m + j]));
      return row;
    }));
    say("product-message", `${n} × ${k} times ${k} × ${m}, every sum in the order of k`);
  };
  onSubmit("product-form", "product-message", multiply);
  multiply();
}

function drawLine(points, level, slope) {
  const canvas = document.getElementById("line-canvas"), pen = canvas.getContext("2d"), colors = pageColors();
  const {width, height} = canvas, edge = 14;
  const span = (values) => [Math.min(...values), Math.max(...values)];
  const [x0, x1] = span(points.map((p) => p[0]));
  const [y0, y1] = span([...points.map((p) => p[1]), level + slope * x0, level + slope * x1]);
  const x = (v) => edge + (width - 2 * edge) * (v - x0) / (x1 - x0 || 1);
  const y = (v) => height - edge - (height - 2 * edge) * (v - y0) / (y1 - y0 || 1);
  pen.clearRect(0, 0, width, height);
  pen.strokeStyle = colors.accent;
  pen.lineWidth = 2;
  pen.beginPath();
  pen.moveTo(x(x0), y(level + slope * x0));
  pen.lineTo(x(x1), y(level + slope * x1));
  pen.stroke();
  pen.fillStyle = colors.ink;
  for (const [px, py] of points) {
    pen.beginPath();
    pen.arc(x(px), y(py), 4, 0, 7);
    pen.fill();
  }
}

function setUpLine(zeph) {
  const fit = () => {
    const points = readRows(document.getElementById("line-points").value, "Points");
    if (points[0].length !== 2) throw new Error("Points: two numbers on each line, x and y");
    if (points.flat().some((v) => !Number.isFinite(v))) throw new Error("Points: finite numbers, please");
    const [level, slope] = withDoubles(zeph, points.map((p) => p[0]), (x) => withDoubles(zeph, points.map((p) => p[1]), (y) => {
      const at = zeph._zeph_line(x, y, points.length) / 8;
      return [zeph.HEAPF64[at], zeph.HEAPF64[at + 1]];
    }));
    if (!Number.isFinite(slope)) throw new Error("All points stand above one x: no line fits them best");
    say("line-message", `y = ${level} + ${slope} x`);
    drawLine(points, level, slope);
  };
  onSubmit("line-form", "line-message", fit);
  matchMedia("(prefers-color-scheme: dark)").addEventListener("change", fit);
  fit();
}

function setUpOrderings(zeph) {
  const list = () => {
    const result = document.getElementById("orderings-result");
    const word = document.getElementById("orderings-word").value.trim();
    result.textContent = "";
    if (!/^[A-Za-z]{1,8}$/.test(word)) throw new Error("One to eight letters of a to z, please");
    const lines = zeph.ccall("zeph_orderings", "string", ["string"], [word]);
    const count = lines.split("\n").length - 1;
    result.textContent = lines;
    say("orderings-message", `${count.toLocaleString("en")} orderings, in the order that the library writes them`);
  };
  onSubmit("orderings-form", "orderings-message", list);
  list();
}
