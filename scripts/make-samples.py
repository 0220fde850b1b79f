#!/usr/bin/python3
"""Writes the sample shape files of data/samples/ with GDAL, from the coordinates below.

    /usr/bin/python3 scripts/make-samples.py [FOLDER]     (default: data/samples)

The samples are ours: a handful of towns, roads and a lake around Moscow, drawn by hand from rounded
coordinates for the examples of the README and the user guide, not survey data. They are in geographic
Pulkovo 1942 (longitude, latitude in degrees), with a .prj, and tables in Windows-1251 with a .cpg, as
the shape files a map maker of the region has. Run again, the script writes the same features (the tables carry the date they were written).
"""
import os
import sys

from osgeo import ogr, osr

ogr.UseExceptions()
osr.UseExceptions()

TOWNS = [  # name, population in thousands, longitude, latitude
    ("Москва", 13010, 37.6173, 55.7558),
    ("Тверь", 424, 35.9176, 56.8587),
    ("Владимир", 349, 40.4066, 56.1290),
    ("Тула", 473, 37.6173, 54.1931),
    ("Рязань", 525, 39.6916, 54.6269),
    ("Калуга", 331, 36.2754, 54.5293),
    ("Ярославль", 577, 39.8845, 57.6261),
]

ROADS = [  # name, vertices (longitude, latitude)
    ("М-10", [(37.6173, 55.7558), (37.17, 56.03), (36.76, 56.33), (35.9176, 56.8587)]),
    ("М-7", [(37.6173, 55.7558), (38.46, 55.86), (39.43, 55.96), (40.4066, 56.1290)]),
    ("М-2", [(37.6173, 55.7558), (37.55, 55.24), (37.46, 54.90), (37.6173, 54.1931)]),
    ("М-5", [(37.6173, 55.7558), (38.23, 55.40), (38.75, 55.09), (39.6916, 54.6269)]),
]

LAKES = [  # name, outer ring (longitude, latitude), closed
    ("Плещеево озеро", [(38.75, 56.72), (38.84, 56.70), (38.86, 56.76), (38.83, 56.81), (38.76, 56.80),
                         (38.73, 56.76), (38.75, 56.72)]),
]

PULKOVO_1942 = 4284


def layer(folder, name, kind, fields):
    path = os.path.join(folder, name + ".shp")
    driver = ogr.GetDriverByName("ESRI Shapefile")
    if os.path.exists(path):
        driver.DeleteDataSource(path)
    ds = driver.CreateDataSource(path)
    srs = osr.SpatialReference()
    srs.ImportFromEPSG(PULKOVO_1942)
    lyr = ds.CreateLayer(name, srs, kind, options=["ENCODING=CP1251"])
    for field, type_, width in fields:
        definition = ogr.FieldDefn(field, type_)
        definition.SetWidth(width)
        lyr.CreateField(definition)
    return ds, lyr


def add(lyr, values, wkt):
    feature = ogr.Feature(lyr.GetLayerDefn())
    for k, v in values.items():
        feature.SetField(k, v)
    feature.SetGeometry(ogr.CreateGeometryFromWkt(wkt))
    lyr.CreateFeature(feature)


def ring(points):
    return ", ".join(f"{x} {y}" for x, y in points)


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..", "data",
                                                                 "samples")
    os.makedirs(folder, exist_ok=True)
    ds, lyr = layer(folder, "towns", ogr.wkbPoint, [("NAME", ogr.OFTString, 32), ("POP_K", ogr.OFTInteger, 6)])
    for name, pop, x, y in TOWNS:
        add(lyr, {"NAME": name, "POP_K": pop}, f"POINT ({x} {y})")
    ds = None
    ds, lyr = layer(folder, "roads", ogr.wkbLineString, [("NAME", ogr.OFTString, 16)])
    for name, points in ROADS:
        add(lyr, {"NAME": name}, f"LINESTRING ({ring(points)})")
    ds = None
    ds, lyr = layer(folder, "lakes", ogr.wkbPolygon, [("NAME", ogr.OFTString, 32)])
    for name, points in LAKES:
        add(lyr, {"NAME": name}, f"POLYGON (({ring(points)}))")
    ds = None


if __name__ == "__main__":
    main()
