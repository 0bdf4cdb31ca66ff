"""Reads TopoJSON: shapes made of arcs that neighbours share, quantised, each point relative to the one before it."""
from itertools import accumulate

from .shapes import Feature


class Topology:
    """The decoded arcs of one file, and the shapes that are made of them."""

    def __init__(self, data):
        self._objects = data["objects"]
        transform = data.get("transform")
        self._arcs = [self._decoded(arc, transform) for arc in data["arcs"]]
        scale = transform["scale"] if transform else (0, 0)
        self.quantum = max(scale)  # degrees
        self.bounds = data.get("bbox")

    @staticmethod
    def _decoded(arc, transform):
        if not transform:
            return [tuple(point[:2]) for point in arc]
        (kx, ky), (x0, y0) = transform["scale"], transform["translate"]
        return [(x * kx + x0, y * ky + y0)
                for x, y in zip(accumulate(point[0] for point in arc), accumulate(point[1] for point in arc))]

    def line(self, indexes):
        """The arcs one behind the other; index -1 - i is arc i backwards. What they share stands once."""
        points = []
        for index in indexes:
            arc = self._arcs[index] if index >= 0 else self._arcs[~index][::-1]
            points += arc[1:] if points else arc
        return points

    def polygons(self, name):
        """Of the object of that name, one feature for each geometry, with the properties of that and its id as \"id\"."""
        return self._features(name, {"Polygon": self._rings}, "MultiPolygon")

    def lines(self, name):
        return self._features(name, {"LineString": self.line}, "MultiLineString")

    def _rings(self, arcs):
        return [self.line(ring) for ring in arcs]

    def _features(self, name, makers, many):
        features = []
        (single, make), = makers.items()
        for geometry in self._geometries(self._objects[name]):
            shapes = {single: lambda arcs: [arcs], many: lambda arcs: arcs}.get(geometry["type"])
            if shapes:
                features.append(Feature([make(arcs) for arcs in shapes(geometry["arcs"])],
                                        {**geometry.get("properties", {}), "id": geometry.get("id")}))
        return features

    @staticmethod
    def _geometries(shape):
        return shape["geometries"] if shape["type"] == "GeometryCollection" else [shape]
