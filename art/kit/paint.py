"""Materials for baking, built from nodes: one for each part of a model, in the model's own coordinates.

    wood = Paint("leg")
    grain = wood.noise(wood.place(1, 8, 8), detail=4)
    wood.finish(wood.ramp(grain, (0.3, "#7a4526"), (0.7, "#a5683a")), height=grain)
"""

import bpy


def linear(colour):
    """'#rrggbb' as a screen shows it, to linear (r, g, b)."""
    values = [int(colour[i:i + 2], 16) / 255 for i in (1, 3, 5)]
    return tuple(v / 12.92 if v <= 0.04045 else ((v + 0.055) / 1.055) ** 2.4 for v in values)


class Paint:
    """The material of one part. Inputs may be numbers, colours ('#rrggbb') or what another call returned."""

    def __init__(self, part):
        self.material = bpy.data.materials.get(part) or bpy.data.materials.new(part)
        self.material.use_nodes = True
        self.tree = self.material.node_tree
        self.tree.nodes.clear()

    def node(self, kind, inputs=(), output=0, **settings):
        """Any node: `inputs` maps names or numbers of its sockets to values. Returns an output socket."""
        made = self.tree.nodes.new("ShaderNode" + kind)
        for key, value in settings.items():
            setattr(made, key, value)
        for socket, value in dict(inputs).items():
            self._connect(made.inputs[socket], value)
        return made.outputs[output]

    def _connect(self, socket, value):
        if isinstance(value, bpy.types.NodeSocket):
            self.tree.links.new(value, socket)
        elif isinstance(value, str):
            socket.default_value = (*linear(value), 1.0)
        else:
            socket.default_value = value

    # --- where ---

    def place(self, x=1.0, y=1.0, z=1.0, offset=None):
        """Coordinates of the model, stretched; noise of scale 1 has lumps about one unit wide."""
        where = self.node("TexCoord", output="Object")
        if offset is not None:
            where = self.node("VectorMath", {0: where, 1: offset}, operation="ADD")
        return self.node("VectorMath", {0: where, 1: (x, y, z)}, operation="MULTIPLY")

    def axis(self, name):
        """One coordinate of the model: "X", "Y" or "Z"."""
        return self.node("SeparateXYZ", {0: self.node("TexCoord", output="Object")}, output=name)

    def island(self):
        """A number 0..1 that differs from one connected piece to the next."""
        return self.node("NewGeometry", output="Random Per Island")

    def dice(self, number):
        """A number 0..1 for each number."""
        return self.node("TexWhiteNoise", {"W": number}, noise_dimensions="1D")

    # --- values ---

    def noise(self, where, scale=1.0, detail=2.0, roughness=0.5, distortion=0.0):
        return self.node("TexNoise", {"Vector": where, "Scale": scale, "Detail": detail, "Roughness": roughness,
                                      "Distortion": distortion})

    def math(self, operation, a, b=0.0, clamp=False):
        return self.node("Math", {0: a, 1: b}, operation=operation, use_clamp=clamp)

    def groove(self, value, pitch, width):
        """0 in a groove at every multiple of `pitch`, 1 between; `width` of it and of its soft edge."""
        share = self.math("PINGPONG", value, pitch / 2)
        return self.node("MapRange", {"Value": share, "From Min": width * 0.25, "From Max": width},
                         interpolation_type="SMOOTHSTEP")

    # --- colours ---

    def ramp(self, value, *stops):
        """A colour for a value: stops are (value, '#rrggbb')."""
        made = self.tree.nodes.new("ShaderNodeValToRGB")
        self._connect(made.inputs[0], value)
        elements = made.color_ramp.elements
        while len(elements) < len(stops):
            elements.new(1.0)
        for element, (at, colour) in zip(elements, stops):
            element.position, element.color = at, (*linear(colour), 1.0)
        return made.outputs[0]

    def mix(self, share, a, b, blend="MIX"):
        return self.node("MixRGB", {"Fac": share, "Color1": a, "Color2": b}, blend_type=blend)

    def brighten(self, colour, factor):
        """The colour times a number."""
        return self.node("VectorMath", {0: colour, "Scale": factor}, operation="SCALE")

    # --- the end ---

    def finish(self, colour, height=None, relief=0.02, shine_through=None):
        """The surface: its colour, and a relief so many units high. `shine_through`: the colour that lamp light behind
        it gets."""
        inputs = {"Color": colour}
        if height is not None:
            inputs["Normal"] = self.node("Bump", {"Height": height, "Strength": 1.0, "Distance": relief})
        surface = self.node("BsdfDiffuse", inputs)
        if shine_through:
            shadow = self.math("MULTIPLY", self.node("LightPath", output="Is Shadow Ray"), 0.6)
            through = self.node("BsdfTransparent", {"Color": shine_through})
            surface = self.node("MixShader", {0: shadow, 1: surface, 2: through})
        return self.cover(surface)

    def cover(self, surface):
        """Makes a shader the surface of the part."""
        self._connect(self.tree.nodes.new("ShaderNodeOutputMaterial").inputs["Surface"], surface)
        return self.material


def flat(part, colour):
    """A part of one colour."""
    paint = Paint(part)
    return paint.finish(colour)
