"""The thin layer: every exported function of libvxk_proj4_shp, declared once with its C signature.

The declarations follow the public header ``vxk_proj4_shp.h`` section by section (its ``@section``
marks). A test compares them with the header, so a function exported there without a declaration here
fails the suite. To add one: declare it in the section of the header that holds it, with the ctypes
types of its result and arguments (wide text as ``c_wchar_p``, a single wide character as ``c_wchar``,
a handle as a pointer to its opaque structure below).

Nothing here is Pythonic: the functions are called as the header describes them. The classes of the
package stand above this layer.
"""

from __future__ import annotations

import ctypes
import threading
from ctypes import (
    CFUNCTYPE,
    POINTER,
    Structure,
    c_bool,
    c_char_p,
    c_double,
    c_int,
    c_int32,
    c_uint,
    c_uint32,
    c_uint64,
    c_void_p,
    c_wchar,
    c_wchar_p,
)
from typing import Any, Dict, List, Optional, Tuple

from . import _loader

# --- opaque handles ------------------------------------------------------------------------------------


class Ivx_string_adp(Structure):
    """A string sink."""


class Tvx_stdlist_string(Structure):
    """A sheet designation record."""


class Tvx_pp2d(Structure):
    """A point vector."""


class Tvx_op2d(Structure):
    """An object vector: the parts of one shape record."""


class Tvx_shp_basic(Structure):
    """A shape file open for writing."""


class Tvx_shp_reader(Structure):
    """A shape file open for reading, with its table."""


class Tvx_stdlist_params(Structure):
    """The generation parameters of a standard sheet."""


class Tvx_stdlist_custom_params(Structure):
    """The generation parameters of a free box."""


class Tvx_rpj_fb_d2(Structure):
    """A batch reprojector."""


class Tvx_text_list_base(Structure):
    """A text list."""


class Tvx_text_data(Structure):
    """A label of a text list."""


class Tvx_callout(Structure):
    """The callout of a label."""


class Tvx_tld_file(Structure):
    """An open TLD file."""


# --- enumerations (32-bit) -----------------------------------------------------------------------------

Tvx_stdlist_hemisphere = c_int32
Tvx_stdlist_scale = c_int32
Tvx_stdlist_type = c_int32

# --- callbacks -----------------------------------------------------------------------------------------

vx_ansi_string_callback_t = CFUNCTYPE(None, c_char_p, c_void_p)
vx_unicode_string_callback_t = CFUNCTYPE(None, c_wchar_p, c_void_p)

vx_env_text_fn = CFUNCTYPE(None, c_void_p, c_char_p)
vx_env_flag_fn = CFUNCTYPE(None, c_void_p, c_bool)
vx_env_start_fn = CFUNCTYPE(c_void_p, c_void_p, c_char_p)
vx_env_finish_fn = CFUNCTYPE(None, c_void_p, c_void_p, c_int)
vx_env_progress_fn = CFUNCTYPE(None, c_void_p, c_void_p, c_uint32, c_uint32)
vx_env_stopped_fn = CFUNCTYPE(c_bool, c_void_p)

vx_proj4_shp_progress_t = CFUNCTYPE(None, c_uint32, c_uint32, c_void_p)

# --- structures passed by value or filled by the library -----------------------------------------------


class vx_env_callbacks(Structure):
    _fields_ = [
        ("message", vx_env_text_fn),
        ("error", vx_env_text_fn),
        ("set_debug_flag", vx_env_flag_fn),
        ("debug_message", vx_env_text_fn),
        ("wait_start", vx_env_start_fn),
        ("wait_finish", vx_env_finish_fn),
        ("progress_start", vx_env_start_fn),
        ("progress", vx_env_progress_fn),
        ("progress_finish", vx_env_finish_fn),
        ("stopped", vx_env_stopped_fn),
    ]


class vx_proj4_shp_counts(Structure):
    _fields_ = [("records", c_uint32), ("failed", c_uint32), ("unreadable", c_uint32), ("file_errors", c_uint32)]


class Tvx_vtx_d2(Structure):
    _fields_ = [("x", c_double), ("y", c_double)]


class Tvx_dbf_field(Structure):
    _fields_ = [("name", ctypes.c_char * 11), ("type", ctypes.c_uint8), ("width", ctypes.c_uint8), ("decimals", ctypes.c_uint8)]


# --- the declarations ----------------------------------------------------------------------------------

SINK = POINTER(Ivx_string_adp)
SHEET = POINTER(Tvx_stdlist_string)
RPJ = POINTER(Tvx_rpj_fb_d2)
LIST = POINTER(Tvx_text_list_base)
TEXT = POINTER(Tvx_text_data)
CALLOUT = POINTER(Tvx_callout)
TLD = POINTER(Tvx_tld_file)
PV = POINTER(Tvx_pp2d)
OV = POINTER(Tvx_op2d)
SHP = POINTER(Tvx_shp_basic)
READER = POINTER(Tvx_shp_reader)
PARAMS = POINTER(Tvx_stdlist_params)
CUSTOM = POINTER(Tvx_stdlist_custom_params)

Signature = Tuple[Any, List[Any]]

# section of the header -> {function: (result type, [argument types])}
DECLARATIONS: Dict[str, Dict[str, Signature]] = {
    "string-sink": {
        "vx_string_adp_create": (SINK, [vx_ansi_string_callback_t, vx_unicode_string_callback_t, c_void_p]),
        "vx_string_adp_feed": (None, [SINK, c_wchar_p]),
        "vx_string_adp_destroy": (None, [SINK]),
    },
    "environment": {
        "vx_res_get_lng": (c_int, []),
        "vx_res_set_lng": (None, [c_int]),
        "vx_env_install_out": (None, [POINTER(vx_env_callbacks), c_void_p]),
        "vx_env_remove_out": (None, []),
    },
    "options": {
        "vx_options_get_style_libs_path": (c_wchar_p, []),
        "vx_options_set_style_libs_path": (None, [c_wchar_p]),
    },
    "stdlist": {
        "vx_stdlist_fetch_hemispheres": (None, [SINK]),
        "vx_stdlist_fetch_scales": (None, [SINK]),
        "vx_stdlist_fetch_scale_str": (None, [Tvx_stdlist_scale, SINK]),
        "vx_stdlist_fetch_types": (None, [SINK]),
        "vx_stdlist_fetch_mln_letters": (None, [SINK]),
        "vx_stdlist_fetch_mln_numbers": (None, [SINK]),
        "vx_stdlist_fetch_500_letters": (None, [SINK]),
        "vx_stdlist_fetch_200_romans": (None, [SINK]),
        "vx_stdlist_fetch_100_numbers": (None, [SINK]),
        "vx_stdlist_fetch_50_letters": (None, [SINK]),
        "vx_stdlist_fetch_25_letters": (None, [SINK]),
        "vx_stdlist_fetch_10_numbers": (None, [SINK]),
        "vx_stdlist_create": (SHEET, []),
        "vx_stdlist_destroy": (None, [SHEET]),
        "vx_stdlist_assign": (None, [SHEET, SHEET]),
        "vx_stdlist_equal": (c_bool, [SHEET, SHEET]),
        "vx_stdlist_valid": (c_bool, [SHEET]),
        "vx_stdlist_init_default": (None, [SHEET]),
        "vx_stdlist_init": (c_bool, [SHEET, Tvx_stdlist_scale, Tvx_stdlist_type, Tvx_stdlist_hemisphere]),
        "vx_stdlist_get_hemisphere": (Tvx_stdlist_hemisphere, [SHEET]),
        "vx_stdlist_get_scale": (Tvx_stdlist_scale, [SHEET]),
        "vx_stdlist_get_type": (Tvx_stdlist_type, [SHEET]),
        "vx_stdlist_hemisphere_tostr": (c_int, [SHEET]),
        "vx_stdlist_scale_tostr": (c_wchar_p, [SHEET]),
        "vx_stdlist_type_tostr": (c_wchar_p, [SHEET]),
        "vx_stdlist_fetch_supported_types": (None, [SHEET, POINTER(c_bool)]),
        "vx_stdlist_get_mid_meridian": (c_double, [SHEET]),
        "vx_stdlist_to_string": (None, [SHEET, SINK]),
        "vx_stdlist_fetch_neighbours": (c_bool, [SHEET, SINK]),
        "vx_stdlist_get_box": (
            c_bool,
            [SHEET, POINTER(c_double), POINTER(c_double), POINTER(c_double), POINTER(c_double)],
        ),
        "vx_stdlist_init_at": (c_bool, [SHEET, Tvx_stdlist_scale, Tvx_stdlist_hemisphere, c_double, c_double]),
        "vx_stdlist_get_mln_letter_idx": (c_uint64, [SHEET]),
        "vx_stdlist_set_mln_letter_idx": (c_bool, [SHEET, c_uint64]),
        "vx_stdlist_get_mln_letter": (c_int, [SHEET]),
        "vx_stdlist_set_mln_letter": (c_bool, [SHEET, c_wchar]),
        "vx_stdlist_get_mln_number": (c_uint64, [SHEET]),
        "vx_stdlist_get_mln_number_str": (None, [SHEET, SINK]),
        "vx_stdlist_set_mln_number": (c_bool, [SHEET, c_uint64]),
        "vx_stdlist_set_mln_number_str": (c_bool, [SHEET, c_wchar_p]),
        "vx_stdlist_get_500_letter_idx": (c_uint64, [SHEET]),
        "vx_stdlist_get_500_letter": (c_int, [SHEET]),
        "vx_stdlist_set_500_letter_idx": (c_bool, [SHEET, c_uint64]),
        "vx_stdlist_set_500_letter": (c_bool, [SHEET, c_wchar]),
        "vx_stdlist_get_200_roman_idx": (c_uint64, [SHEET]),
        "vx_stdlist_get_200_roman": (None, [SHEET, SINK]),
        "vx_stdlist_set_200_roman_idx": (c_bool, [SHEET, c_uint64]),
        "vx_stdlist_set_200_roman": (c_bool, [SHEET, c_wchar_p]),
        "vx_stdlist_get_100_number": (c_uint64, [SHEET]),
        "vx_stdlist_get_100_number_str": (None, [SHEET, SINK]),
        "vx_stdlist_set_100_number": (c_bool, [SHEET, c_uint64]),
        "vx_stdlist_set_100_number_str": (None, [SHEET, c_wchar_p]),
        "vx_stdlist_get_50_letter_idx": (c_uint64, [SHEET]),
        "vx_stdlist_get_50_letter": (c_int, [SHEET]),
        "vx_stdlist_set_50_letter_idx": (c_bool, [SHEET, c_uint64]),
        "vx_stdlist_set_50_letter": (c_uint64, [SHEET, c_wchar]),
        "vx_stdlist_get_25_letter_idx": (c_uint64, [SHEET]),
        "vx_stdlist_get_25_letter": (c_int, [SHEET]),
        "vx_stdlist_set_25_letter_idx": (None, [SHEET, c_uint64]),
        "vx_stdlist_set_25_letter": (c_uint64, [SHEET, c_wchar]),
        "vx_stdlist_get_10_number": (c_uint64, [SHEET]),
        "vx_stdlist_get_10_number_str": (c_int, [SHEET]),
        "vx_stdlist_set_10_number": (c_bool, [SHEET, c_uint64]),
        "vx_stdlist_set_10_number_str": (c_uint64, [SHEET, c_wchar]),
    },
    "reproj-shp": {
        "vx_proj4_shp": (c_bool, [c_char_p, c_char_p, c_char_p, c_char_p]),
        "vx_proj4_shp_w": (c_bool, [c_wchar_p, c_wchar_p, c_wchar_p, c_wchar_p]),
        "vx_proj4_shp_ex": (
            c_bool,
            [
                c_char_p,
                c_char_p,
                c_char_p,
                c_char_p,
                vx_proj4_shp_progress_t,
                c_void_p,
                POINTER(vx_proj4_shp_counts),
            ],
        ),
    },
    "vectors": {
        "vx_pv_d2_create": (PV, []),
        "vx_pv_d2_destroy": (None, [PV]),
        "vx_pv_d2_clear": (None, [PV]),
        "vx_pv_d2_set_size": (None, [PV, c_uint32]),
        "vx_pv_d2_get_size": (c_uint32, [PV]),
        "vx_pv_d2_get_vtx": (Tvx_vtx_d2, [PV, c_uint32]),
        "vx_pv_d2_set_vtx": (None, [PV, c_uint32, Tvx_vtx_d2]),
        "vx_pv_d2_add_vtx": (None, [PV, Tvx_vtx_d2]),
        "vx_pv_d2_add_pv": (None, [PV, PV]),
        "vx_pv_d2_assign": (None, [PV, PV]),
        "vx_pv_d2_get_length": (c_double, [PV]),
        "vx_ov_d2_create": (OV, []),
        "vx_ov_d2_add": (PV, [OV]),
        "vx_ov_d2_clear": (None, [OV]),
        "vx_ov_d2_destroy": (None, [OV]),
    },
    "writers": {
        "vx_shp_file_create_w": (SHP, [c_wchar_p, c_int]),
        "vx_shp_file_add_polypoint": (c_bool, [SHP, OV, c_int]),
        "vx_shp_file_add_point": (c_bool, [SHP, Tvx_vtx_d2]),
        "vx_shp_file_close": (None, [SHP]),
        "vx_dbf_field_init": (c_bool, [POINTER(Tvx_dbf_field), c_char_p, c_int, c_int, c_int]),
        "vx_dbf_create_w": (c_void_p, [c_wchar_p, c_int, c_int, POINTER(Tvx_dbf_field), c_int]),
        "vx_dbf_get_nr": (c_int32, [c_void_p]),
        "vx_dbf_add_records": (c_bool, [c_void_p, c_int]),
        "vx_dbf_set_int": (c_bool, [c_void_p, c_int, c_int, c_int32]),
        "vx_dbf_set_str": (c_bool, [c_void_p, c_int, c_int, c_char_p]),
        "vx_dbf_close": (None, [c_void_p]),
    },
    "reader": {
        "vx_shp_reader_open_w": (READER, [c_wchar_p]),
        "vx_shp_reader_close": (None, [READER]),
        "vx_shp_reader_get_type": (c_int, [READER]),
        "vx_shp_reader_get_count": (c_uint32, [READER]),
        "vx_shp_reader_read": (c_uint32, [READER, c_uint32]),
        "vx_shp_reader_get_part": (c_bool, [READER, c_uint32, PV]),
        "vx_shp_reader_get_row_count": (c_uint32, [READER]),
        "vx_shp_reader_get_column_count": (c_uint32, [READER]),
        "vx_shp_reader_get_column_name": (c_wchar_p, [READER, c_uint32]),
        "vx_shp_reader_find_column": (c_int32, [READER, c_wchar_p]),
        "vx_shp_reader_get_value": (c_wchar_p, [READER, c_uint32, c_uint32]),
    },
    "proj-services": {
        "vx_pj4_is_longlat_w": (c_bool, [c_wchar_p]),
        "vx_pj4_load_simple_w": (c_bool, [c_wchar_p, SINK]),
        "vx_pj4_save_w": (c_bool, [c_wchar_p, c_wchar_p]),
        "vx_pj4_export_esri": (c_bool, [c_wchar_p, SINK]),
        "vx_rpj_fb_d2_create": (RPJ, []),
        "vx_rpj_fb_d2_init_w": (c_bool, [RPJ, c_wchar_p, c_wchar_p]),
        "vx_rpj_fb_d2_apply_pv": (c_bool, [RPJ, POINTER(Tvx_pp2d), c_int]),
        "vx_rpj_fb_d2_destroy": (None, [RPJ]),
    },
    "proj-strings": {
        "vx_pj4_export_gdal": (c_bool, [c_wchar_p, SINK]),
        "vx_pj4_describe_w": (None, [c_wchar_p, c_int, SINK]),
        "vx_pj4_equivalent_w": (c_int, [c_wchar_p, c_wchar_p]),
        "vx_pj4_fetch_catalogue": (c_bool, [c_wchar_p, SINK]),
    },
    "text-lists": {
        "vx_text_list_create": (LIST, []),
        "vx_text_list_destroy": (None, [LIST]),
        "vx_text_list_get_size": (c_uint, [LIST]),
        "vx_text_list_at": (TEXT, [LIST, c_uint]),
        "vx_text_list_add": (TEXT, [LIST]),
        "vx_text_list_clear": (None, [LIST]),
        "vx_text_data_get_type": (c_int, [TEXT]),
        "vx_text_data_set_type": (None, [TEXT, c_int]),
        "vx_text_data_get_count": (c_uint, [TEXT]),
        "vx_text_data_set_count": (c_bool, [TEXT, c_uint]),
        "vx_text_data_add_point": (c_bool, [TEXT, Tvx_vtx_d2]),
        "vx_text_data_get_point": (Tvx_vtx_d2, [TEXT, c_uint]),
        "vx_text_data_set_point": (None, [TEXT, Tvx_vtx_d2, c_uint]),
        "vx_text_data_get_size_count": (c_uint, [TEXT]),
        "vx_text_data_get_size": (c_double, [TEXT, c_uint]),
        "vx_text_data_get_delta_x": (c_double, [TEXT, c_uint]),
        "vx_text_data_get_delta_y": (c_double, [TEXT, c_uint]),
        "vx_text_data_set_size": (None, [TEXT, c_double, c_uint]),
        "vx_text_data_set_delta_x": (None, [TEXT, c_double, c_uint]),
        "vx_text_data_set_delta_y": (None, [TEXT, c_double, c_uint]),
        "vx_text_data_get_text": (c_wchar_p, [TEXT]),
        "vx_text_data_set_text": (c_bool, [TEXT, c_wchar_p]),
        "vx_text_data_get_font_name": (c_wchar_p, [TEXT]),
        "vx_text_data_set_font_name": (c_bool, [TEXT, c_wchar_p]),
        "vx_text_data_get_color": (c_uint32, [TEXT]),
        "vx_text_data_set_color": (None, [TEXT, c_uint32]),
        "vx_text_data_get_style": (c_uint32, [TEXT]),
        "vx_text_data_set_style": (None, [TEXT, c_uint32]),
        "vx_text_data_get_align": (c_int32, [TEXT]),
        "vx_text_data_set_align": (None, [TEXT, c_int32]),
        "vx_text_data_get_angle": (c_double, [TEXT]),
        "vx_text_data_set_angle": (None, [TEXT, c_double]),
        "vx_text_data_get_callout": (CALLOUT, [TEXT]),
        "vx_text_data_add_callout": (CALLOUT, [TEXT]),
        "vx_text_data_remove_callout": (None, [TEXT]),
        "vx_callout_get_size": (c_uint, [CALLOUT]),
        "vx_callout_get_end_point": (Tvx_vtx_d2, [CALLOUT, c_uint]),
        "vx_callout_set_end_point": (None, [CALLOUT, Tvx_vtx_d2, c_uint]),
        "vx_callout_add_end_point": (c_bool, [CALLOUT, Tvx_vtx_d2]),
        "vx_tld_file_open_w": (TLD, [c_wchar_p]),
        "vx_tld_file_read_all": (c_bool, [TLD, LIST]),
        "vx_tld_file_write_all": (c_bool, [TLD, LIST, c_int]),
        "vx_tld_file_get_error": (c_wchar_p, [TLD]),
        "vx_tld_file_close": (None, [TLD]),
        "vx_proj4_text_list_w": (c_bool, [LIST, c_wchar_p, c_wchar_p]),
        "vx_proj4_tld_w": (c_bool, [c_wchar_p, c_wchar_p, c_wchar_p, c_wchar_p]),
        "vx_proj4_tld": (c_bool, [c_char_p, c_char_p, c_char_p, c_char_p]),
        "vx_proj4_xsp": (c_bool, [c_char_p, c_char_p, c_char_p, c_char_p]),
    },
    "generation": {
        "vx_stdlist_params_create": (PARAMS, [SHEET]),
        "vx_stdlist_params_destroy": (None, [PARAMS]),
        "vx_stdlist_params_set_output_dir": (None, [PARAMS, c_wchar_p]),
        "vx_stdlist_params_set_lat_divs": (None, [PARAMS, c_int, c_int]),
        "vx_stdlist_params_set_lon_divs": (None, [PARAMS, c_int, c_int]),
        "vx_stdlist_params_set_scene_proj": (None, [PARAMS, c_wchar_p]),
        "vx_stdlist_generate_shapes": (c_bool, [PARAMS]),
        "vx_stdlist_custom_params_create": (CUSTOM, []),
        "vx_stdlist_custom_params_destroy": (None, [CUSTOM]),
        "vx_stdlist_custom_params_set_box": (None, [CUSTOM, c_double, c_double, c_double, c_double]),
        "vx_stdlist_custom_params_set_output_dir": (None, [CUSTOM, c_wchar_p]),
        "vx_stdlist_custom_params_set_grid_steps": (None, [CUSTOM, c_double, c_double]),
        "vx_stdlist_custom_params_set_scene_proj": (None, [CUSTOM, c_wchar_p]),
        "vx_stdlist_custom_generate_shapes": (c_bool, [CUSTOM]),
    },
}


def signatures() -> Dict[str, Signature]:
    """Every declared function, whatever its section."""
    return {name: sig for section in DECLARATIONS.values() for name, sig in section.items()}


class _Library:
    """The loaded library with every declaration applied; loaded at the first use of a function."""

    def __init__(self) -> None:
        self._cdll: Optional[ctypes.CDLL] = None
        self._lock = threading.Lock()

    @property
    def path(self) -> str:
        """The file the library was loaded from."""
        return self._load()._name

    def _load(self) -> ctypes.CDLL:
        with self._lock:
            if self._cdll is None:
                cdll = _loader.load()
                for name, (restype, argtypes) in signatures().items():
                    fn = getattr(cdll, name)
                    fn.restype = restype
                    fn.argtypes = argtypes
                self._cdll = cdll
            return self._cdll

    def __getattr__(self, name: str) -> Any:
        if name not in signatures():
            raise AttributeError(f"{name} is not declared in the thin layer")
        fn = getattr(self._load(), name)
        setattr(self, name, fn)  # later look-ups find it directly
        return fn


lib: Any = _Library()
