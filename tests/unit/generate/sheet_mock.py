"""A complete scene set of the 1:200,000 sheet N-37-VI, written with GDAL, for the tests of `vxk render`:
every file and record kind of a generated sheet (area, graticule lines and points, frames, minute ticks
and bars, coordinate labels, neighbours' names) with the tables and codes of the generator, the geometry
laid out in the test by plain interpolation between the sheet's corners. It stands in for the
generator's own files while the generator does not write them all, and it is a set that another program
wrote."""
import os

from osgeo import ogr, osr

GEOGRAPHIC = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
SCENE = ("+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
         "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs")
WEST, EAST, SOUTH, NORTH = 41.0, 42.0, 55 + 20 / 60, 56.0
MM = 200.0  # metres on the ground per millimetre of the sheet at 1:200,000
NEIGHBOURS = ("N-37-V", "N-37-VII", "N-37-XXXVI", "N-37-XII")  # left, right, upper, lower


class Sheet:
    """Positions on the sheet: (u, v) from (0, 0) at the south-west to (1, 1) at the north-east corner,
    offsets in millimetres of the sheet outwards across the sides."""

    def __init__(self):
        src, dst = osr.SpatialReference(), osr.SpatialReference()
        src.ImportFromProj4(GEOGRAPHIC)
        dst.ImportFromProj4(SCENE)
        for s in (src, dst):
            s.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
        self.t = osr.CoordinateTransformation(src, dst)

    def at(self, u, v, du_mm=0.0, dv_mm=0.0):
        lon, lat = WEST + u * (EAST - WEST), SOUTH + v * (NORTH - SOUTH)
        x, y, _ = self.t.TransformPoint(lon, lat)
        return x + du_mm * MM, y + dv_mm * MM

    def ring(self, margin_mm, n=12):
        side = [i / n for i in range(n + 1)]
        m = margin_mm
        return ([self.at(0, v, -m, 0) for v in side] + [self.at(u, 1, 0, m) for u in side] +
                [self.at(1, v, m, 0) for v in reversed(side)] + [self.at(u, 0, 0, -m) for u in reversed(side)])


def layer(folder, name, kind, columns):
    path = os.path.join(folder, name + ".shp")
    ds = ogr.GetDriverByName("ESRI Shapefile").CreateDataSource(path)
    lyr = ds.CreateLayer(name, geom_type=kind, options=["ENCODING=CP1251"])
    for column, ctype, width in columns:
        d = ogr.FieldDefn(column, ctype)
        d.SetWidth(width)
        lyr.CreateField(d)
    with open(os.path.join(folder, name + ".pj4"), "w") as f:
        f.write(SCENE + "\n")
    return ds, lyr


def add(lyr, points, closed=False, polygon=False, **values):
    f = ogr.Feature(lyr.GetLayerDefn())
    for k, v in values.items():
        f.SetField(k, v)
    if len(points) == 1:
        g = ogr.Geometry(ogr.wkbPoint)
        g.AddPoint_2D(*points[0])
    else:
        line = ogr.Geometry(ogr.wkbLinearRing if polygon else ogr.wkbLineString)
        for p in points + (points[:1] if closed else []):
            line.AddPoint_2D(*p)
        g = line
        if polygon:
            g = ogr.Geometry(ogr.wkbPolygon)
            g.AddGeometry(line)
    f.SetGeometry(g)
    lyr.CreateFeature(f)


def degrees(value):
    d = int(value + 1e-9)
    return f"{d}° ", f"{round((value - d) * 60):02d}'"


LABEL = [("ID", ogr.OFTInteger, 6), ("L_CODE", ogr.OFTInteger, 8), ("TEXT", ogr.OFTString, 100),
         ("FONT", ogr.OFTString, 100), ("SIZE", ogr.OFTString, 100)]


def write_mock_set(out):
    """Writes HYPS/ and FRAME/ of the mock under `out`; gives the label texts in their order."""
    s = Sheet()
    hyps, frame = os.path.join(out, "HYPS"), os.path.join(out, "FRAME")
    os.makedirs(hyps, exist_ok=True)
    os.makedirs(frame, exist_ok=True)
    ds, lyr = layer(hyps, "Hypsa", ogr.wkbPolygon,
                    [("ID", ogr.OFTInteger, 6), ("L_CODE", ogr.OFTInteger, 9), ("NAME", ogr.OFTString, 100)])
    add(lyr, s.ring(0), polygon=True, ID=1, L_CODE=-1, NAME="N-37-VI")
    ds = None

    ds, lyr = layer(hyps, "Hypsl", ogr.wkbLineString,
                    [("ID", ogr.OFTInteger, 6), ("L_CODE", ogr.OFTInteger, 6), ("TEXT", ogr.OFTString, 40)])
    steps = [i / 12 for i in range(13)]
    for k, u in enumerate((1 / 3, 2 / 3)):
        add(lyr, [s.at(u, v) for v in steps], ID=k + 1, L_CODE=400012, TEXT="Меридиан")
    add(lyr, [s.at(u, 0.5) for u in steps], ID=3, L_CODE=400011, TEXT="Параллель")
    add(lyr, s.ring(0), ID=4, L_CODE=400010, TEXT="Рамка")
    ds = None

    ds, lyr = layer(hyps, "Hypsp", ogr.wkbPoint, [("ID", ogr.OFTInteger, 6), ("L_CODE", ogr.OFTInteger, 6)])
    for i in range(9):
        for j in range(9):
            add(lyr, [s.at(i / 8, j / 8)], ID=i * 9 + j, L_CODE=-1)
    ds = None

    ds, lyr = layer(frame, "Frame", ogr.wkbLineString, LABEL[:2])
    n = 0
    for margin, code in ((7.0, 400903), (8.2, 400902), (9.8, 400903)):
        n += 1
        add(lyr, s.ring(margin), ID=n, L_CODE=code)
    band, middle = (7.0, 8.2), 7.6
    for count, along_u in ((60, True), (40, False)):  # a tick and a bar every minute
        for k in range(count + 1):
            t = k / count
            for far in (0, 1):
                sign = 1 if far else -1
                if along_u:
                    tick = [s.at(t, far, 0, sign * band[0]), s.at(t, far, 0, sign * band[1])]
                else:
                    tick = [s.at(far, t, sign * band[0], 0), s.at(far, t, sign * band[1], 0)]
                n += 1
                add(lyr, tick, ID=n, L_CODE=400901)
                if k % 2 == 0 and k < count:
                    t2 = (k + 1) / count
                    bar = ([s.at(t, far, 0, sign * middle), s.at(t2, far, 0, sign * middle)] if along_u else
                           [s.at(far, t, sign * middle, 0), s.at(far, t2, sign * middle, 0)])
                    n += 1
                    add(lyr, bar, ID=n, L_CODE=400901)
    ds = None

    texts = []
    ds, lyr = layer(frame, "FrameDig", ogr.wkbLineString, LABEL)
    n = 0
    for v, lat in ((0, SOUTH), (0.5, (SOUTH + NORTH) / 2), (1, NORTH)):
        d, m = degrees(lat)
        for side, sign in ((0, -1), (1, 1)):
            x0 = 4.2 if side == 0 else 1.0
            for text, dv in ((d, 1.3), (m, -1.2)):
                n += 1
                a, b = s.at(side, v, sign * x0, dv), s.at(side, v, sign * x0 + 3.2, dv)
                add(lyr, [a, b], ID=n, L_CODE=400912, TEXT=text, FONT="Times New Roman", SIZE="8.00")
                texts.append(text)
    for u, lon in ((0, WEST), (1 / 3, WEST + 1 / 3), (2 / 3, WEST + 2 / 3), (1, EAST)):
        d, m = degrees(lon)
        for v, dv in ((0, -1.8), (1, 1.8)):
            n += 1
            ends = [s.at(u, v, -3.1, dv), s.at(u, v, 3.4, dv)]
            add(lyr, ends if v else ends[::-1], ID=n, L_CODE=400912, TEXT=d + m, FONT="Times New Roman",
                SIZE="8.00")
            texts.append(d + m)
    ds = None

    ds, lyr = layer(frame, "FrameAdj", ogr.wkbLineString, LABEL)
    half = 0.5 * 1.3  # 260 m a character at 1:200,000: 1.3 mm; the sheet is about 314 by 370 mm
    for k, name in enumerate(NEIGHBOURS):
        w = len(name) * half / 314.0
        h = len(name) * half / 370.0
        if k < 2:
            ends = [s.at(k, 0.5 - h, 9.8 * (1 if k else -1), 0), s.at(k, 0.5 + h, 9.8 * (1 if k else -1), 0)]
        else:
            v = 1 if k == 2 else 0
            ends = [s.at(0.5 - w, v, 0, 9.8 * (1 if v else -1)), s.at(0.5 + w, v, 0, 9.8 * (1 if v else -1))]
        add(lyr, ends, ID=k + 1, L_CODE=400911, TEXT=name, FONT="Times New Roman", SIZE="6.50")
        texts.append(name)
    ds = None
    return texts


if __name__ == "__main__":
    import sys

    print(write_mock_set(sys.argv[1]))
