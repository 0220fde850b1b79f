"""What `vxk sheet` must print for a designation, and what it must refuse."""

SHEETS = [
    (["N-37"], dict(designation="N-37", scale="1:1000000", type="1 (Стандартный лист)", hemisphere="N",
                    valid="yes", mid_meridian="39")),
    (["--type", "2", "N-37"], dict(designation="N-37,38", type="2 (Сдвоенный лист)", mid_meridian="42")),
    (["--type", "4", "N-59"], dict(designation="N-59,60,1,2", mid_meridian="180")),
    (["--south", "--type", "4", "S-60"], dict(designation="S-60,1,2,3", hemisphere="S", mid_meridian="186")),
    (["A-1"], dict(designation="A-1", mid_meridian="-177")),
]

ERRORS = [
    (["X-1"], ["'X' is not a band letter"]),
    (["Z-1"], ["'Z' is not a band letter"]),
    (["N-61"], ["'61' is not a column number"]),
    (["N"], ["is not a designation"]),
    ([""], ["is not a designation"]),
    (["N-37-XL"], ["'XL'"]),
    (["N-37-145"], ["'145' is not a 1:100,000 number"]),
    (["N-37-12-Д"], ["'Д' is not a 1:50,000 letter"]),
    (["N-37-12-Б-Г"], ["'Г' is not a 1:25,000 letter"]),
    (["N-37-12-Б-в-5"], ["'5' is not a 1:10,000 number"]),
    (["N-37-12-Б-в-4-1"], ["unexpected '1'"]),
    (["N-37-А-1"], ["unexpected '1'"]),
    (["--type", "3", "N-37"], ["type 3 is not available at 1:1000000"]),
    (["--type", "7", "N-37"], ["--type takes 1 to 4"]),
    (["--type"], ["--type needs a value"]),
    (["--bogus", "N-37"], ["unknown option '--bogus'"]),
    ([], ["expected one designation"]),
    (["N-37", "N-38"], ["expected one designation"]),
    ([b"\xff\xfe-1"], ["is not a band letter"]),  # bytes that are not UTF-8
]

OUTPUTS = [
    (["--lists"], ["hemispheres:   N, S", "1:200000:      I, II, III", "XXXVI", "1:25000:       а, б, в, г",
                   "Счетверенный лист", '"", 1:1000000, 1:500000, 1:200000']),
    (["--help"], ["usage: vxk sheet", "--south", "--type N", "--lists", "examples:", "vxk sheet N-37-VI"]),
]
