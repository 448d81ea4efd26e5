#!/usr/bin/env python3
"""Writes the two bundled space-surface examples: examples/surface-mesh.zpx, the graph of
z = sin(x) cos(y) as a 30 x 30 Mesh3d with normals and a line and a fill colour per point, and
examples/triangulated.zpx, an icosahedron as a Surf3d of triangles with one fill colour per
corner. Numbers are written with six significant digits, as the library writes them.

    scripts/make-surface-examples.py [EXAMPLES_DIR]
"""
import math
import os
import sys


def g(v):
    text = "%g" % (0.0 if abs(v) < 1e-12 else v)
    return "0" if text == "-0" else text


def colour(t, dark=1.0):
    """Blue through green to yellow for t in [0, 1]; `dark` scales the brightness."""
    t = min(max(t, 0.0), 1.0)
    r, gr, b = (2 * t - 1 if t > 0.5 else 0), (2 * t if t < 0.5 else 1), (1 - 2 * t if t < 0.5 else 0)
    return "#%02x%02x%02x" % tuple(int(round(255 * c * dark)) for c in (r, gr, b))


def page(name, comment, obj_type, body):
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<!-- {comment} -->
<Canvas version="1" Name="{name}" Width="120" Height="100">
  <Scene3d Name="Surface">
    <CoordinateSystem3d Name="Space" Axes="Boxed">
      <Obj3d Type="{obj_type}" Name="{name}">
        <Img3d>
{body}
        </Img3d>
      </Obj3d>
    </CoordinateSystem3d>
  </Scene3d>
</Canvas>
"""


def surface_mesh():
    n = 30
    rows = []
    for r in range(n):
        y = -math.pi + 2 * math.pi * r / (n - 1)
        for c in range(n):
            x = -math.pi + 2 * math.pi * c / (n - 1)
            z = math.sin(x) * math.cos(y)
            nx, ny = -math.cos(x) * math.cos(y), math.sin(x) * math.sin(y)
            length = math.sqrt(nx * nx + ny * ny + 1)
            t = (z + 1) / 2
            rows.append("            <P3>%s %s %s %s %s %s %s %s</P3>" % (
                g(x), g(y), g(z), g(nx / length), g(ny / length), g(1 / length),
                colour(t, 0.5), colour(t)))
    body = ('          <Mesh3d UMesh="%d" VMesh="%d" LineColorType="Functional" '
            'FillColorType="Functional" Shading="Smooth" PointsVisible="0">\n' % (n, n)
            + "\n".join(rows) + "\n          </Mesh3d>")
    return page("sin(x) cos(y)",
                "The graph of sin(x) cos(y) over [-PI, PI] x [-PI, PI]: a 30 x 30 mesh with "
                "a normal per\n     point, its lines coloured by the first colour list, its "
                "faces by the second, both by\n     height.",
                "Function3d", body)


def triangulated():
    p = (1 + math.sqrt(5)) / 2
    v = [(-1, p, 0), (1, p, 0), (-1, -p, 0), (1, -p, 0), (0, -1, p), (0, 1, p), (0, -1, -p),
         (0, 1, -p), (p, 0, -1), (p, 0, 1), (-p, 0, -1), (-p, 0, 1)]
    faces = [(0, 11, 5), (0, 5, 1), (0, 1, 7), (0, 7, 10), (0, 10, 11), (1, 5, 9), (5, 11, 4),
             (11, 10, 2), (10, 7, 6), (7, 1, 8), (3, 9, 4), (3, 4, 2), (3, 2, 6), (3, 6, 8),
             (3, 8, 9), (4, 9, 5), (2, 4, 11), (6, 2, 10), (8, 6, 7), (9, 8, 1)]
    size = math.sqrt(1 + p * p)
    rows = []
    for face in faces:
        for i in face:
            x, y, z = (c / size for c in v[i])
            rows.append("            <P3>%s %s %s %s %s %s %s</P3>" % (
                g(x), g(y), g(z), g(x), g(y), g(z), colour((z + 1) / 2)))
    body = ('          <Surf3d Type="Triangles" FillColorType="Functional" MeshVisible="1" '
            'LineColor="#404040" LineWidth="0.2">\n' + "\n".join(rows) + "\n          </Surf3d>")
    return page("Icosahedron",
                "A unit icosahedron as 20 triangles of a Surf3d; each corner has its normal "
                "and a fill\n     colour by height, and the mesh lines are drawn in one colour.",
                "Surface", body)


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..",
                                                              "examples")
    for name, text in (("surface-mesh.zpx", surface_mesh()), ("triangulated.zpx", triangulated())):
        with open(os.path.join(out, name), "w") as f:
            f.write(text)


if __name__ == "__main__":
    main()
