// The solid: an icosahedron through CZEPHMatrix4x4, turned by mouse, touch and arrow keys.
"use strict";

const golden = (1 + Math.sqrt(5)) / 2;
const corners = [
  [-1, golden, 0], [1, golden, 0], [-1, -golden, 0], [1, -golden, 0], [0, -1, golden], [0, 1, golden],
  [0, -1, -golden], [0, 1, -golden], [golden, 0, -1], [golden, 0, 1], [-golden, 0, -1], [-golden, 0, 1],
].map((p) => p.map((x) => x / Math.hypot(1, golden)));

// Two corners share an edge where they stand as near as corners come; three such pairs make a face.
const indices = corners.map((_, i) => i);
const near = (i, j) => i < j && Math.hypot(...corners[i].map((x, c) => x - corners[j][c])) < 1.1;
const edges = indices.flatMap((i) => indices.filter((j) => near(i, j)).map((j) => [i, j]));
const faces = edges.flatMap(([i, j]) => indices.filter((k) => near(i, k) && near(j, k)).map((k) => outwards(i, j, k)));

// The corners of a face in the order that runs counter-clockwise as seen from outside.
function outwards(i, j, k) {
  const [[a, b, c], [d, e, f], [g, h, m]] = [corners[i], corners[j], corners[k]];
  return a * (e * m - f * h) - b * (d * m - f * g) + c * (d * h - e * g) > 0 ? [i, j, k] : [i, k, j];
}

// The edges of the faces that still run counter-clockwise on the screen; the others are behind.
function edgesInFront(screen) {
  const seen = new Set();
  for (const [i, j, k] of faces) {
    const [[ax, ay], [bx, by], [cx, cy]] = [screen[i], screen[j], screen[k]];
    if ((bx - ax) * (cy - ay) - (cx - ax) * (by - ay) <= 0) continue;
    for (const pair of [[i, j], [j, k], [i, k]]) seen.add(String(pair.sort((p, q) => p - q)));
  }
  return (edge) => seen.has(String(edge));
}

function setUpSolid(zeph) {
  const canvas = document.getElementById("solid-canvas"), pen = canvas.getContext("2d");
  const start = {x: 25, y: 38};
  let angle = {...start}, held = null;
  const points = zeph._malloc(12 * corners.length);
  zeph.HEAPF32.set(corners.flat(), points / 4);

  const showMatrix = (entries) => {
    document.getElementById("solid-matrix").replaceChildren(...[0, 1, 2, 3].map((row) => {
      const tr = document.createElement("tr");
      for (let column = 0; column < 4; ++column) cell(tr, entries[4 * column + row].toFixed(5));
      return tr;
    }));
    document.getElementById("solid-angles").textContent = `About x ${angle.x.toFixed(0)}°, about y ${angle.y.toFixed(0)}°`;
  };
  const draw = () => {
    const perspective = Number(document.querySelector("input[name=projection]:checked").value);
    const at = zeph._zeph_view(angle.x, angle.y, perspective, points, corners.length) / 4;
    const placed = Array.from(zeph.HEAPF32.subarray(at, at + 16 + 3 * corners.length));
    showMatrix(placed);
    const colors = pageColors(), {width, height} = canvas;
    const screen = corners.map((_, i) => [0, 1, 2].map((c) => placed[16 + 3 * i + c]));
    pen.clearRect(0, 0, width, height);
    pen.lineCap = "round";
    const inFront = edgesInFront(screen);
    for (const [p, q] of [...edges].sort((a, b) => inFront(a) - inFront(b))) {
      pen.strokeStyle = inFront([p, q]) ? colors.accent : colors.line;
      pen.lineWidth = inFront([p, q]) ? 3 : 1.5;
      pen.beginPath();
      pen.moveTo((screen[p][0] + 1) * width / 2, (1 - screen[p][1]) * height / 2);
      pen.lineTo((screen[q][0] + 1) * width / 2, (1 - screen[q][1]) * height / 2);
      pen.stroke();
    }
  };
  const turn = (x, y) => { angle.x += x; angle.y += y; draw(); };

  canvas.addEventListener("pointerdown", (event) => { held = [event.clientX, event.clientY]; canvas.setPointerCapture(event.pointerId); });
  canvas.addEventListener("pointermove", (event) => {
    if (!held) return;
    turn((event.clientY - held[1]) / 2, (event.clientX - held[0]) / 2);
    held = [event.clientX, event.clientY];
  });
  for (const name of ["pointerup", "pointercancel"]) canvas.addEventListener(name, () => { held = null; });
  canvas.addEventListener("keydown", (event) => {
    const by = {ArrowUp: [-5, 0], ArrowDown: [5, 0], ArrowLeft: [0, -5], ArrowRight: [0, 5]}[event.key];
    if (!by) return;
    event.preventDefault();
    turn(...by);
  });
  document.querySelectorAll("input[name=projection]").forEach((input) => input.addEventListener("change", draw));
  document.getElementById("solid-reset").addEventListener("click", () => { angle = {...start}; draw(); });
  matchMedia("(prefers-color-scheme: dark)").addEventListener("change", draw);
  draw();
}
