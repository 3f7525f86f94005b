#!/usr/bin/env python3
"""Writes a large table of made-up values as CSV. The same number of rows always gives the same file."""

import argparse
import random
import sys

HEADER = "reaction,site,rate / 1/s,energy / eV,temperature / K,events\n"

SPECIES = ["CO", "H2O", "CH3OH", "NH3", "C2H4", "N2O", "O2", "HCOOH"]
STEPS = [
    "adsorption on a clean terrace",
    "desorption from a covered terrace",
    "diffusion along a step edge",
    "diffusion across a domain boundary",
    "dissociation at an oxygen vacancy",
    "association with a neighbouring hydroxyl group",
]
SITES = ["top", "bridge", "hollow", "kink"]


def write_rows(out, count):
    """Few names and many rows, as in the log of a simulation."""
    values = random.Random(20240229)
    names = [f"{species}: {step}" for species in SPECIES for step in STEPS]
    energies = [values.uniform(0.2, 2.4) for _ in names]
    for _ in range(count):
        reaction = values.randrange(len(names))
        temperature = values.uniform(280.0, 900.0)
        energy = energies[reaction] + values.gauss(0.0, 0.01)
        rate = 1e13 * 2.718281828 ** (-energy / (8.617e-5 * temperature))
        out.write(f"{names[reaction]},{values.choice(SITES)},{rate:.6e},{energy:.5f},"
                  f"{temperature:.2f},{values.randrange(1, 100000)}\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--rows", type=int, default=100_000, help="rows below the header (%(default)s)")
    parser.add_argument("--out", help="file to write instead of the standard output")
    arguments = parser.parse_args()
    if arguments.rows < 0:
        parser.error("--rows cannot be negative")
    out = open(arguments.out, "w", encoding="utf-8", newline="") if arguments.out else sys.stdout
    with out:
        out.write(HEADER)
        write_rows(out, arguments.rows)


if __name__ == "__main__":
    main()
