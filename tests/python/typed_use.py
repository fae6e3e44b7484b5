# SPDX-License-Identifier: GPL-3.0-or-later
"""A user's program, for mypy: what it knows of the module."""
import tarvokol

panel: tarvokol.Panel = tarvokol.read("panel.TKL")
panel.DepthCover = 200
holes: int = panel.NumberHoles
web: float = tarvokol.analyse(panel)["StabilityFactor"][1]
texts: tuple[str, ...] = tarvokol.MESSAGES
tarvokol.write("copy.TKL", panel, force=True)
joint: object = tarvokol.risk(panel, {"CoalStrength": "normal:900:135"}, below=[("WebsOnly", 1.6)], sobol=True)["joint"]
found: object = tarvokol.design(panel, {"CoalStrength": "normal:900:135"}, {"WebThickness": ("WebsOnly", 1.6, 0.05)}, step=0.25)["found"]
