#!/usr/bin/python3
"""Prints what BioPython reads in a file: "name<tab>sequence" a line, or the names of a tree's leaves.

read_back.py fasta|nexus|newick FILE
"""
import io
import re
import sys

from Bio import Phylo, SeqIO
from Bio.Nexus.Nexus import Nexus


def nexus(text):
    # BioPython takes a quoted gap character for a quote, and wants to be told a datatype.
    text = text.replace("gap='-'", "gap=-")
    text = re.sub(r'format symbols=".*";', "format datatype=RNA gap=*;", text)
    block = Nexus(text)
    return [(name, str(block.matrix[name])) for name in block.taxlabels]


def fasta(text):
    return [(each.description, str(each.seq)) for each in SeqIO.parse(io.StringIO(text), "fasta")]


kind, path = sys.argv[1:]
with open(path, encoding="latin-1") as file:
    content = file.read()
if kind == "newick":
    line = "".join(line for line in content.splitlines() if not line.startswith("#"))
    for leaf in Phylo.read(io.StringIO(line), "newick").get_terminals():
        print(leaf.name)
else:
    for name, sequence in {"nexus": nexus, "fasta": fasta}[kind](content):
        print(f"{name}\t{sequence}")
