"""What `vxk sheet` must print for a designation, and what it must refuse."""

SHEETS = [
    # Forgiving input: blanks, case, dashes, look-alike letters, joined sheets as the library prints them.
    ([" n - 37 - vi "], dict(designation="N-37-VI", scale="1:200000")),
    (["N 37 VI"], dict(designation="N-37-VI")),
    (["N–37–VI"], dict(designation="N-37-VI")),
    (["М-37"], dict(designation="M-37")),  # Cyrillic Em
    (["N-37-A"], dict(designation="N-37-А")),  # Latin A for the Cyrillic letter
    (["N-37-ХІ"], dict(designation="N-37-XI")),  # Cyrillic Ha and Ukrainian I
    (["n-37-12-б-В-4"], dict(designation="-12-Б-в-4", in_full="N-37-12-Б-в-4   (the library writes 1:10,000 "
                                                              "sheets without their band and column)")),
    (["N-37-VI,38-I"], dict(designation="N-37-VI,38-I", type="2 (Сдвоенный лист)", mid_meridian="39")),
    (["n-37-vi, 38-i,ii"], dict(designation="N-37-VI,38-I,II", type="3 (Строенный лист)")),
    (["--type", "2", "N-37-VI,38-I"], dict(designation="N-37-VI,38-I")),
    (["--south", "N-60,1"], dict(designation="N-60,1", hemisphere="S")),
    (["N-37-А"], dict(designation="N-37-А", scale="1:500000", mid_meridian="39")),
    (["--type", "4", "N-37-Б"], dict(designation="N-37-Б,38-А,Б,39-А", mid_meridian="39")),
    (["N-37-VI"], dict(designation="N-37-VI", scale="1:200000")),
    (["--type", "3", "T-60-VI"], dict(designation="T-60-VI,1-I,II", type="3 (Строенный лист)")),
    (["N-37-12"], dict(designation="N-37-12", scale="1:100000")),
    (["--type", "2", "N-37-144"], dict(designation="N-37-144,38-133")),
    (["N-37-12-Б"], dict(designation="N-37-12-Б", scale="1:50000")),
    (["--type", "4", "N-37-12-Г"], dict(designation="N-37-12-Г,38-1-В,Г,2-В")),
    (["N-37-12-Б-в"], dict(designation="N-37-12-Б-в", scale="1:25000")),
    (["--type", "4", "N-37-12-Б-а"], dict(designation="N-37-12-Б-а,б,38-1-А-а,б")),
    (["N-37-12-Б-в-4"], dict(designation="-12-Б-в-4", scale="1:10000", valid="yes")),
    (["--south", "N-37-12-Б-в-4"], dict(designation="-12-Б-в-4", hemisphere="S")),
    (["N-37"], dict(designation="N-37", scale="1:1000000", type="1 (Стандартный лист)", hemisphere="N",
                    valid="yes", mid_meridian="39")),
    (["--type", "2", "N-37"], dict(designation="N-37,38", type="2 (Сдвоенный лист)", mid_meridian="42")),
    (["--type", "4", "N-59"], dict(designation="N-59,60,1,2", mid_meridian="180")),
    (["--south", "--type", "4", "S-60"], dict(designation="S-60,1,2,3", hemisphere="S", mid_meridian="186")),
    (["A-1"], dict(designation="A-1", mid_meridian="-177")),
]

# Designations that name no sheet: exit 1 with the reason.
FAILURES = [
    (["X-1"], ["'X' is not a band letter"]),
    (["Z-1"], ["'Z' is not a band letter"]),
    (["N-61"], ["'61' is not a column number"]),
    (["N"], ["is not a designation"]),
    ([""], ["is not a designation"]),
    (["N-37-XL"], ["'XL'"]),
    (["N-37-145"], ["'145' is not a 1:100,000 number"]),
    (["N-37-12-Д"], ["'Д' is not a 1:50,000 letter"]),
    (["N-37-12-Б-в-5"], ["'5' is not a 1:10,000 number"]),
    (["N-37-12-Б-в-4-1"], ["unexpected '1'"]),
    (["N-37-А-1"], ["unexpected '1'"]),
    (["--type", "3", "N-37"], ["type 3 is not available at 1:1000000"]),
    (["--neighbours", "N-37"], ["neighbours are known for 1:200,000 sheets only"]),
    (["--neighbours", "N-37-12-Б"], ["neighbours are known for 1:200,000 sheets only"]),
    (["--neighbours", "--type", "4", "N-37-VI"], ["type 4 is not available at 1:200000"]),
    ([b"\xff\xfe-1"], ["is not a band letter"]),  # bytes that are not UTF-8
    (["Н-37"], ["looks like H but reads as N"]),  # Cyrillic En: H or N cannot be told
    (["N-37-B"], ["looks like В but reads as Б"]),
    (["N-37-VI,38-II"], ["reads N-37-VI,38-I"]),
    (["N-37,39"], ["reads N-37,38"]),
    (["-12-Б-в-4"], ["without its band and column", "N-37-12-Б-в-4"]),
    (["--", "-12-Б-в-4"], ["without its band and column"]),
    (["N-37-12-Б-в-4,3"], ["does not name joined sheets at 1:10,000"]),
    (["N-37,38,39,40,41"], ["joins more than four sheets"]),
    (["--at", "89", "10"], ["no sheet holds latitude 89", "polar cap"]),
    (["--at", "-90", "10"], ["no sheet holds latitude -90"]),
    (["--children", "N-37-VI", "--scale", "1:200000"], ["finer scale than 1:200000"]),
    (["--children", "N-37-VI", "--scale", "1:1000000"], ["finer scale"]),
]

# Command lines that are wrong: exit 2, one line with the mistake and a pointer to the help.
USAGE = [
    (["--type", "7", "N-37"], ["--type takes 1 to 4"]),
    (["--type"], ["--type needs a value"]),
    (["--bogus", "N-37"], ["unknown option '--bogus'"]),
    (["--lists", "--neighbours"], ["goes with none of"]),
    (["--lists", "N-37"], ["--lists takes no designation"]),
    ([], ["expected one designation, 0 given"]),
    (["N-37", "N-38"], ["expected one designation, 2 given"]),
    (["--type", "3", "N-37-VI,38-I"], ["joins 2 sheets, not the 3 of --type"]),
    (["--at", "10"], ["--at needs a latitude and a longitude"]),
    (["--at", "x", "10"], ["the latitude takes degrees"]),
    (["--at", "10", "20y"], ["the longitude takes degrees"]),
    (["--at", "91", "10"], ["not between -90 and 90"]),
    (["--at", "120", "55"], ["the latitude first"]),
    (["--at", "10", "20", "N-37"], ["--at takes no designation"]),
    (["--at", "10", "20", "--south"], ["lies north of the equator"]),
    (["--at", "10", "20", "--scale", "1:300000"], ["not a scale of the series"]),
    (["--at", "10", "20", "--type", "2"], ["--type goes with a designation"]),
    (["--children", "N-37"], ["--children needs --scale"]),
    (["--scale", "1:200000", "N-37"], ["--scale goes with --children and --at"]),
    (["--bounds", "--format", "svg", "N-37"], ["--format takes text, wkt or geojson"]),
    (["--format", "wkt", "N-37"], ["--format goes with --bounds and --children"]),
    (["--bounds", "--neighbours", "N-37-VI"], ["goes with none of"]),
]

OUTPUTS = [
    (["--neighbours", "N-37-VI"], ["sheet:  N-37-VI\n", "left:   N-37-V\n", "right:  N-38-I\n",
                                   "upper:  O-37-XXXVI\n", "lower:  N-37-XII\n"]),
    (["--neighbours", "--type", "2", "N-37-I"], ["sheet:  N-37-I,II\n", "left:   N-36-V,VI\n",
                                                 "right:  N-37-III,IV\n"]),
    (["--neighbours", "N-60-VI"], ["right:  N-1-I\n"]),
    (["--neighbours", "U-37-I"], ["upper:  A-37-XXXI\n"]),
    (["--neighbours", "--south", "A-37-III"], ["upper:  A-37-XXXIII\n"]),
    (["--neighbours", "N-37-XXXI"], ["lower:  M-37-I\n"]),
    # Where the library's upper or lower neighbour is not the sheet north or south of it, that sheet is
    # named with the reason (worked out from the layout: rows from the north edge of the million sheet in
    # the north, from its south edge in the south).
    (["--neighbours", "V-37-II"], ["upper:  A-37-XXXII\n        (past the pole: no sheet lies north of it, the bands "
                                   "end at 88 degrees)\nlower:  V-37-VIII\n"]),
    (["--neighbours", "U-37-I"], ["upper:  A-37-XXXI\n        (the library's rule carries band U to A in the north: "
                                  "the sheet north of it is V-37-XXXI)\n"]),
    (["--neighbours", "A-37-XXXIII"], ["lower:  A-37-III\n        (across the equator, which the library's rule does "
                                       "not cross: the sheet south of it is A-37-XXXIII in the southern hemisphere)"]),
    (["--neighbours", "--south", "A-37-III"], ["upper:  A-37-XXXIII\n        (in the south the rows count from the "
                                               "south edge of the million sheet, which the library's rule does not "
                                               "follow: the sheet north of it is A-37-IX)\n",
                                               "lower:  A-37-IX\n        (in the south", "south of it is B-37-XXXIII)"]),
    (["--neighbours", "--south", "A-37-XXXIII"], ["upper:  A-37-XXVII\n        (in the south", "the sheet north of "
                                                  "it is A-37-XXXIII in the northern hemisphere)"]),
    (["--neighbours", "--south", "V-37-III"], ["lower:  V-37-IX\n        (in the south", "no sheet lies south of "
                                               "it, the bands end at 88 degrees)"]),
    (["--neighbours", "--type", "2", "N-37-VI"], ["upper:  O-37-XXXVI,38-XXXI\nlower:  N-37-XII,38-VII\n"]),
    (["--neighbours", "B-37-XXXIII"], ["lower:  A-37-III\n"]),
    (["--lists"], ["hemispheres:   N, S", "1:200000:      I, II, III", "XXXVI", "1:25000:       а, б, в, г",
                   "Счетверенный лист", '"", 1:1000000, 1:500000, 1:200000']),
    (["--help"], ["usage: vxk sheet", "--south", "--type N", "--lists", "examples:", "vxk sheet N-37-VI",
                  "--at LAT LON", "--bounds", "--children", "mid meridian:", "exit status: 0 done; 1", "2 the command"]),
    (["--at", "55.7558", "37.6173"], ["1:1000000    N-37\n", "1:200000     N-37-II\n",
                                      "1:10000      N-37-4-В-а-4   (the library writes -4-В-а-4)\n"]),
    (["--at", "56", "42", "--scale", "1:1000000"], ["1:1000000    O-38   (on its edge, also N-37, O-37, N-38)"]),
    (["--at", "0", "36", "--scale", "1:1000000", "--south"], ["A-37   (on its edge, also A-36, A-36 (north), A-37 (north))"]),
    (["--at", "-0", "180", "--scale", "1:1000000"], ["1:1000000    A-1 "]),
    (["N-37-VI", "--bounds"], ["sheet:  N-37-VI\n", 'west:   41                   41°00\'00"E\n',
                               'south:  55.333333333333336   55°20\'00"N\n']),
    (["N-37-VI", "--bounds", "--format", "wkt"], ["POLYGON ((41 55.333333333333336, 42 55.333333333333336, 42 56, "
                                                  "41 56, 41 55.333333333333336))\n"]),
    # The equator is 0, not the 3.3e-16 of the library's arithmetic.
    (["--south", "A-37-XXXIII", "--bounds"], ["south:  -0.6666666666666666  0°40'00\"S\nnorth:  0      "]),
    (["--children", "N-37-VI", "--scale", "1:100000"], ["N-37-11\nN-37-12\nN-37-23\nN-37-24\n"]),
]
