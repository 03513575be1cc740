#!/usr/bin/env python3
"""Many small trusses solved in two ways: by `orvane --json`, in one call, and by a Python script that writes each as rods
for CalculiX, a well-known program of finite elements (Debian: calculix-ccx), runs it and reads the forces back. Says the
time of both for each truss and by how much their member forces differ at most.

  benchmarks/with_finite_elements.py [NUMBER]     of trusses, 200 when not given: the Pratt truss with other loads
"""
import json, math, random, subprocess, sys, tempfile, time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PROGRAM = ROOT / "build" / "release" / "orvane"
AREA, STIFFNESS = 1.0, 2.1e11
# Which directions a support holds, by its type: 1 to 4 both, the rollers y, y, x and x.
HELD = {1: (1, 2), 2: (1, 2), 3: (1, 2), 4: (1, 2), 5: (2,), 6: (2,), 7: (1,), 8: (1,)}


def write_trusses(folder, number):
    text = (ROOT / "examples" / "pratt.trs").read_bytes()
    chosen = random.Random(1)
    for i in range(number):
        parts = text.split(b"-1000")
        loaded = b"".join(part + (b"-%d" % chosen.randrange(100, 5000) if k + 1 < len(parts) else b"") for k, part in enumerate(parts))
        (folder / f"{i}.trs").write_bytes(loaded)


def input_of(truss):
    """The truss in CalculiX's words, and the members by the numbers of their elements."""
    nodes = {}

    def node(x, y):
        return nodes.setdefault((x, y), len(nodes) + 1)

    elements = [f"{i}, {node(m['X1'], m['Y1'])}, {node(m['X2'], m['Y2'])}" for i, m in enumerate(truss["members"], 1)]
    held = [f"{node(s['X'], s['Y'])}, {axis}, {axis}" for s in truss["supports"] for axis in HELD[s["TypeIndex"]]]
    loads = [f"{node(f['X'], f['Y'])}, {axis}, {f[key]}" for f in truss["forces"] for axis, key in ((1, "Fx"), (2, "Fy"))]
    flat = [f"{number}, 3, 3" for number in nodes.values()]
    places = [f"{number}, {x}, {y}, 0" for (x, y), number in nodes.items()]
    return "\n".join(["*NODE, NSET=ALL", *places, "*ELEMENT, TYPE=T3D2, ELSET=RODS", *elements,
                      "*MATERIAL, NAME=M", "*ELASTIC", f"{STIFFNESS}, 0", "*SOLID SECTION, ELSET=RODS, MATERIAL=M", f"{AREA}",
                      "*BOUNDARY", *held, *flat, "*STEP", "*STATIC", "*CLOAD", *loads,
                      "*EL PRINT, ELSET=RODS", "S", "*END STEP", ""])


def forces_of(folder, name, truss):
    """By the names of the members; compression is positive, as in Orvane."""
    (folder / f"{name}.inp").write_text(input_of(truss))
    subprocess.run(["ccx", name], cwd=folder, stdout=subprocess.DEVNULL, check=True)
    found = {}
    for line in (folder / f"{name}.dat").read_text().splitlines():
        words = line.split()
        if len(words) == 8 and words[0].isdigit():
            member = truss["members"][int(words[0]) - 1]
            along = math.atan2(member["Y2"] - member["Y1"], member["X2"] - member["X1"])
            xx, yy, xy = float(words[2]), float(words[3]), float(words[5])
            stress = xx * math.cos(along) ** 2 + yy * math.sin(along) ** 2 + 2 * xy * math.sin(along) * math.cos(along)
            found[member["Name"]] = -stress * AREA
    return found


def main():
    number = int(sys.argv[1]) if len(sys.argv) > 1 else 200
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        write_trusses(folder, number)
        begun = time.perf_counter()
        said = subprocess.run([PROGRAM, "--json", *[f"{i}.trs" for i in range(number)]], cwd=folder, stdout=subprocess.PIPE, check=True)
        ours = time.perf_counter() - begun
        trusses = [json.loads(line) for line in said.stdout.splitlines()]

        begun = time.perf_counter()
        theirs = [forces_of(folder, f"t{i}", truss) for i, truss in enumerate(trusses)]
        other = time.perf_counter() - begun

    most = 0.0
    for truss, forces in zip(trusses, theirs):
        values = {solution["Name"]: solution["Value"] for solution in truss["solutions"]}
        largest = max(abs(value) for value in values.values())
        most = max(most, *(abs(values[member["Name"]] - forces[member["Name"]]) / largest for member in truss["members"]))
    print(f"{number} trusses: orvane --json {1000 * ours / number:.2f} ms each, finite elements {1000 * other / number:.2f} ms each; "
          f"the forces differ by {most:.1g} of the largest at most")


main()
