// A solid as lines: rotated by Euler angles, moved away from the eye, projected in perspective and
// orthographically, side by side.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <utility>

#include "tour.h"

namespace tour {

namespace {

struct Solid {
  std::vector<CZEPHVector3D> corners;
  std::vector<std::vector<std::size_t>> faces;  // corners counter-clockwise as seen from outside
};

// Twelve corners on three golden rectangles, twenty triangles.
Solid Icosahedron() {
  const float g = (1 + std::sqrt(5.0f)) / 2;
  Solid solid;
  solid.corners = {{-1, g, 0},  {1, g, 0},  {-1, -g, 0}, {1, -g, 0}, {0, -1, g},  {0, 1, g},
                   {0, -1, -g}, {0, 1, -g}, {g, 0, -1},  {g, 0, 1},  {-g, 0, -1}, {-g, 0, 1}};
  solid.faces = {{0, 11, 5}, {0, 5, 1},  {0, 1, 7},   {0, 7, 10}, {0, 10, 11},
                 {1, 5, 9},  {5, 11, 4}, {11, 10, 2}, {10, 7, 6}, {7, 1, 8},
                 {3, 9, 4},  {3, 4, 2},  {3, 2, 6},   {3, 6, 8},  {3, 8, 9},
                 {4, 9, 5},  {2, 4, 11}, {6, 2, 10},  {8, 6, 7},  {9, 8, 1}};
  return solid;
}

[[noreturn]] void RefuseLine(const std::string& file, std::size_t line, const char* why) {
  RefuseInput(file + ":" + std::to_string(line) + ": " + why);
}

// One corner of an "f" line: "7", "7/1", "7//2" or "-1", counted from 1 or from the end.
std::size_t CornerIndex(const std::string& word, std::size_t corners, const std::string& file,
                        std::size_t line) {
  char* end = nullptr;
  const long index = std::strtol(word.c_str(), &end, 10);
  const long count = static_cast<long>(corners);
  if (end == word.c_str() || (*end && *end != '/')) RefuseLine(file, line, "not a corner's number");
  if (index == 0 || index > count || index < -count) RefuseLine(file, line, "no such corner");
  return static_cast<std::size_t>(index > 0 ? index - 1 : count + index);
}

// The "v" and "f" lines of a Wavefront OBJ file.
Solid ReadSolid(const std::string& file) {
  std::ifstream in(file);
  if (!in) RefuseInput(file + ": cannot be read");
  Solid solid;
  std::string text;
  for (std::size_t line = 1; std::getline(in, text); ++line) {
    std::istringstream words(text);
    std::string word;
    words >> word;
    if (word == "v") {
      float x, y, z;
      if (!(words >> x >> y >> z)) RefuseLine(file, line, "three numbers are wanted");
      solid.corners.emplace_back(x, y, z);
    } else if (word == "f") {
      std::vector<std::size_t> face;
      while (words >> word) face.push_back(CornerIndex(word, solid.corners.size(), file, line));
      if (face.size() < 3) RefuseLine(file, line, "a face has three corners or more");
      solid.faces.push_back(face);
    }
  }
  if (solid.faces.empty()) RefuseInput(file + ": no faces");
  return solid;
}

// Moves the middle of the bounding box to the origin and the farthest corner to distance 1.
void Normalise(Solid& solid) {
  CZEPHVector3D low = solid.corners[0], high = low;
  for (const CZEPHVector3D& p : solid.corners) {
    low.Set(std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z));
    high.Set(std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z));
  }
  const CZEPHVector3D middle = low.LinearInterpolate(high, 0.5f);
  float radius = 0;
  for (CZEPHVector3D& p : solid.corners) {
    p -= middle;
    radius = std::max(radius, p.GetLength());
  }
  for (CZEPHVector3D& p : solid.corners) p /= radius;
}

// Whether a projected face shows its outside: its corners are still counter-clockwise.
bool FacesUs(const std::vector<CZEPHVector3D>& points, const std::vector<std::size_t>& face) {
  float area = 0;
  for (std::size_t i = 0; i < face.size(); ++i) {
    const CZEPHVector3D &p = points[face[i]], &q = points[face[(i + 1) % face.size()]];
    area += p.x * q.y - q.x * p.y;
  }
  return area > 0;
}

// Edges, and whether one of their faces is turned towards us. A line between hidden faces is
// hidden; for a convex solid that is exact, for others approximate.
std::map<std::pair<std::size_t, std::size_t>, bool> Edges(
    const Solid& solid, const std::vector<CZEPHVector3D>& points) {
  std::map<std::pair<std::size_t, std::size_t>, bool> edges;
  for (const auto& face : solid.faces) {
    const bool visible = FacesUs(points, face);
    for (std::size_t i = 0; i < face.size(); ++i) {
      const std::size_t a = face[i], b = face[(i + 1) % face.size()];
      bool& seen = edges[{std::min(a, b), std::max(a, b)}];
      seen = seen || visible;
    }
  }
  return edges;
}

constexpr int kPanel = 400;

void DrawLines(std::ostream& svg, const Solid& solid, const std::vector<CZEPHVector3D>& points,
               bool visible) {
  svg << "<g class=\"" << (visible ? "seen" : "hidden") << "\">\n";
  for (const auto& [edge, seen] : Edges(solid, points)) {
    if (seen != visible) continue;
    const auto x = [](const CZEPHVector3D& p) { return (p.x + 1) * kPanel / 2; };
    const auto y = [](const CZEPHVector3D& p) { return (1 - p.y) * kPanel / 2; };  // y grows down
    const CZEPHVector3D &p = points[edge.first], &q = points[edge.second];
    svg << "<line x1=\"" << x(p) << "\" y1=\"" << y(p) << "\" x2=\"" << x(q) << "\" y2=\"" << y(q)
        << "\"/>\n";
  }
  svg << "</g>\n";
}

// The solid through one projection; `place` rotates it and moves it in front of the eye.
void DrawPanel(std::ostream& svg, const Solid& solid, const CZEPHMatrix4x4& projection,
               const CZEPHMatrix4x4& place, const char* caption, int left) {
  const CZEPHMatrix4x4 all = projection * place;
  std::vector<CZEPHVector3D> points;
  for (const CZEPHVector3D& corner : solid.corners)
    points.push_back(all * CZEPHVector4D(corner));  // divides by w
  svg << "<g transform=\"translate(" << left << ",0)\">\n";
  DrawLines(svg, solid, points, false);
  DrawLines(svg, solid, points, true);
  svg << "<text x=\"" << kPanel / 2 << "\" y=\"" << kPanel + 10 << "\">" << caption
      << "</text>\n</g>\n";
}

}  // namespace

void DrawWireframe(const Context& context) {
  Solid solid = context.solidFile.empty() ? Icosahedron() : ReadSolid(context.solidFile);
  Normalise(solid);

  CZEPHMatrix4x4 turn, move, perspective, ortho;
  turn.SetRotationEuler(38, 25, 8);
  move.SetTranslation(CZEPHVector3D(0, 0, -2.6f));
  perspective.SetPerspective(50, 1, 0.1f, 10);
  ortho.SetOrtho(-1.2f, 1.2f, -1.2f, 1.2f, 0.1f, 10);
  const CZEPHMatrix4x4 place = move * turn;  // rotated first, then translated

  const std::string path = context.outputFolder + "/wireframe.svg";
  std::ofstream svg(path);
  svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << 2 * kPanel << " "
      << kPanel + 30 << "\" width=\"" << 2 * kPanel << "\" height=\"" << kPanel + 30 << "\">\n"
      << "<style>line{stroke-linecap:round}.seen{stroke:#1b4f8a;stroke-width:3}"
         ".hidden{stroke:#9db4cf;stroke-width:1}"
         "text{font:16px sans-serif;text-anchor:middle;fill:#333}</style>\n"
      << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
  DrawPanel(svg, solid, perspective, place, "SetPerspective", 0);
  DrawPanel(svg, solid, ortho, place, "SetOrtho", kPanel);
  svg << "</svg>\n";
  svg.close();
  if (!svg) RefuseInput(path + ": cannot be written");

  const CZEPHVector3D corner = place * CZEPHVector4D(solid.corners[0]);
  const CZEPHVector3D back = place.GetAffineInverse() * CZEPHVector4D(corner);
  std::printf("%zu corners, %zu faces; turned by (38, 25, 8) degrees, moved 2.6 away\n",
              solid.corners.size(), solid.faces.size());
  std::printf("corner 0: (%.3f, %.3f, %.3f) becomes (%.3f, %.3f, %.3f)\n",
              static_cast<double>(solid.corners[0].x), static_cast<double>(solid.corners[0].y),
              static_cast<double>(solid.corners[0].z), static_cast<double>(corner.x),
              static_cast<double>(corner.y), static_cast<double>(corner.z));
  std::printf("and comes back to within %.1e through GetAffineInverse\n",
              static_cast<double>((back - solid.corners[0]).GetLength()));
  std::printf("drawn: %s\n", path.c_str());
}

}  // namespace tour
