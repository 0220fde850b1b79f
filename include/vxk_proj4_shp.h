/*
 * vxk_proj4_shp: reprojection of vector data through PROJ, and the nomenclature and drawing of the
 * standard topographic map sheets (1:1,000,000 to 1:10,000).
 *
 * This is the only header a host includes. Every function has C linkage and an unmangled name.
 *
 * Conventions of the flat interface:
 *   - Wide text is wchar_t (32-bit on Linux), zero-terminated.
 *   - Narrow paths and PROJ strings are UTF-8.
 *   - A handle made by a *_create function belongs to the caller until the matching *_destroy;
 *     only *_destroy accepts a null handle.
 *   - Lists of texts are delivered one row per feed into a string sink (Ivx_string_adp).
 *   - A bool result is true on success. Nothing is thrown across this interface.
 *   - The library starts no threads and holds no locks: serialise calls that reproject or generate.
 */
#ifndef VXK_PROJ4_SHP_H
#define VXK_PROJ4_SHP_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <wchar.h>

#if defined(__GNUC__)
#define VX_API __attribute__((visibility("default")))
#else
#define VX_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ===================================================================================================
 * Shared value types
 * =================================================================================================== */

/* A vertex: x then y, passed by value. An easting or longitude, then a northing or latitude (degrees,
 * longitude first, in a geographic system). */
#ifndef VX_VTX_D2_DEFINED
#define VX_VTX_D2_DEFINED
typedef struct Tvx_vtx_d2 {
  double x;
  double y;
} Tvx_vtx_d2;
#endif

/* ===================================================================================================
 * String sink
 * =================================================================================================== */

/* @section string-sink */

/* A sink through which lists and texts leave the library: each feed passes one text to the host's
 * callback together with the host's user pointer. A list arrives as one feed per row, in order.
 * If a unicode callback is given, it receives every feed as wide text; otherwise the ansi callback
 * receives it converted to the system's narrow code page (Windows-1251). A null text is passed on as
 * null. Either callback may be null. */
typedef struct Ivx_string_adp Ivx_string_adp;
typedef void (*vx_ansi_string_callback_t)(const char* text, void* user);
typedef void (*vx_unicode_string_callback_t)(const wchar_t* text, void* user);

VX_API Ivx_string_adp* vx_string_adp_create(vx_ansi_string_callback_t ansi_callback,
                                            vx_unicode_string_callback_t unicode_callback,
                                            void* user_pointer);
VX_API void vx_string_adp_feed(Ivx_string_adp* adapter, const wchar_t* text);
VX_API void vx_string_adp_destroy(Ivx_string_adp* adapter);

/* ===================================================================================================
 * Language and host environment
 * =================================================================================================== */

/* @section environment */

/* The language of the library's messages. 0 selects Russian; any other value English, which is the
 * default. The message table asks once, when it gives its first text, so set the language before the
 * first call that can report anything. */
VX_API int vx_res_get_lng(void);
VX_API void vx_res_set_lng(int language);

/* A host environment: callbacks through which the library's reports reach the host. Without one, every
 * report vanishes and failures show only in return values. Each callback receives the host's user
 * pointer first; any of them may be null, in which case that report is dropped (and the start functions
 * give null, stopped gives false). Texts are narrow, in the system's narrow code page (Windows-1251).
 *
 *   message, error, debug_message  one line of text each;
 *   set_debug_flag                 whether debug lines are wanted;
 *   wait_start / wait_finish       a busy mark around a long step: wait_start returns the host's handle,
 *                                  which comes back to wait_finish with a status (0 done, 101 user stop,
 *                                  anything else an error);
 *   progress_start / progress /    a progress bar: progress_start returns the host's handle, progress
 *   progress_finish                gives current and total, progress_finish the status as above;
 *   stopped                        asked during long work: true when the user wants it to stop. */
typedef void (*vx_env_text_fn)(void* user, const char* text);
typedef void (*vx_env_flag_fn)(void* user, bool flag);
typedef void* (*vx_env_start_fn)(void* user, const char* text);
typedef void (*vx_env_finish_fn)(void* user, void* handle, int status);
typedef void (*vx_env_progress_fn)(void* user, void* handle, uint32_t current, uint32_t total);
typedef bool (*vx_env_stopped_fn)(void* user);

typedef struct vx_env_callbacks {
  vx_env_text_fn message;
  vx_env_text_fn error;
  vx_env_flag_fn set_debug_flag;
  vx_env_text_fn debug_message;
  vx_env_start_fn wait_start;
  vx_env_finish_fn wait_finish;
  vx_env_start_fn progress_start;
  vx_env_progress_fn progress;
  vx_env_finish_fn progress_finish;
  vx_env_stopped_fn stopped;
} vx_env_callbacks;

/* Installs the host environment: the callbacks are copied, the user pointer is kept as it is. A null
 * callbacks pointer installs an environment with every callback null. Replaces any environment that
 * was installed before. Install before any other call and not while one runs: nothing here is locked. */
VX_API void vx_env_install_out(const vx_env_callbacks* callbacks, void* user);

/* Removes the environment installed by vx_env_install_out; reports vanish again. */
VX_API void vx_env_remove_out(void);

/* ===================================================================================================
 * Style library
 * =================================================================================================== */

/* @section options */

/* The folder of the style library, which holds "std_list/proj0.pj4": the geographic system (Pulkovo 1942
 * on the Krasovsky ellipsoid) in which the sheet generator lays out a sheet and to which it returns for
 * the latlong set. The answer is, in this order: the path given to vx_options_set_style_libs_path; the
 * environment variable VXK_STYLE_LIBS (UTF-8); the installed default <prefix>/share/vxk/stylelib/ when
 * that folder exists; and the source tree's data/stylelib/ for a library used from its build tree. It
 * always ends in a separator and is never null; the pointer is valid until the next call. */
VX_API const wchar_t* vx_options_get_style_libs_path(void);
/* Sets the folder that vx_options_get_style_libs_path answers; null or an empty text returns to the
 * default order. */
VX_API void vx_options_set_style_libs_path(const wchar_t* path);

/* ===================================================================================================
 * Sheet designation record
 * =================================================================================================== */

/* @section stdlist */

/* The nomenclature of a standard topographic map sheet, from 1:1,000,000 down to 1:10,000.
 * Level values are one-based; 0 marks "no such value" and reads as "?" in texts. */

/* Hemisphere (32-bit). */
typedef int32_t Tvx_stdlist_hemisphere;
enum { VX_STDLIST_NORTH = 1, VX_STDLIST_SOUTH = 2 };

/* Scale (32-bit). 1:300,000 is declared but never valid; 9 is accepted by the setters and never valid. */
typedef int32_t Tvx_stdlist_scale;
enum {
  VX_STDLIST_SC_NONE = 0,
  VX_STDLIST_SC_MLN = 1, /* 1:1,000,000 */
  VX_STDLIST_SC_500 = 2, /* 1:500,000 */
  VX_STDLIST_SC_300 = 3, /* 1:300,000 */
  VX_STDLIST_SC_200 = 4, /* 1:200,000 */
  VX_STDLIST_SC_100 = 5, /* 1:100,000 */
  VX_STDLIST_SC_50 = 6,  /* 1:50,000 */
  VX_STDLIST_SC_25 = 7,  /* 1:25,000 */
  VX_STDLIST_SC_10 = 8,  /* 1:10,000 */
  VX_STDLIST_SC_END = 9
};

/* Sheet type (32-bit): the count of adjoining sheets joined in one row. */
typedef int32_t Tvx_stdlist_type;
enum { VX_STDLIST_TP_SGL = 1, VX_STDLIST_TP_DBL = 2, VX_STDLIST_TP_TPL = 3, VX_STDLIST_TP_QRP = 4 };

/* A sheet designation record, made by vx_stdlist_create and freed by vx_stdlist_destroy. */
typedef struct Tvx_stdlist_string Tvx_stdlist_string;

/* Lists of legal values, one feed per row. */
VX_API void vx_stdlist_fetch_hemispheres(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_scales(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_scale_str(Tvx_stdlist_scale scale, Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_types(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_mln_letters(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_mln_numbers(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_500_letters(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_200_romans(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_100_numbers(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_50_letters(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_25_letters(Ivx_string_adp* sink);
VX_API void vx_stdlist_fetch_10_numbers(Ivx_string_adp* sink);

/* Life and the whole record. A new record is north, 1:1,000,000, single, every level 1 ("A-1"). */
VX_API Tvx_stdlist_string* vx_stdlist_create(void);
VX_API void vx_stdlist_destroy(Tvx_stdlist_string* sheet);
VX_API void vx_stdlist_assign(Tvx_stdlist_string* destination, const Tvx_stdlist_string* source);
VX_API bool vx_stdlist_equal(const Tvx_stdlist_string* a, const Tvx_stdlist_string* b);
VX_API bool vx_stdlist_valid(const Tvx_stdlist_string* sheet);
VX_API void vx_stdlist_init_default(Tvx_stdlist_string* sheet);
VX_API bool vx_stdlist_init(Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale, Tvx_stdlist_type type,
                            Tvx_stdlist_hemisphere hemisphere);
VX_API Tvx_stdlist_hemisphere vx_stdlist_get_hemisphere(const Tvx_stdlist_string* sheet);
VX_API Tvx_stdlist_scale vx_stdlist_get_scale(const Tvx_stdlist_string* sheet);
VX_API Tvx_stdlist_type vx_stdlist_get_type(const Tvx_stdlist_string* sheet);
/* Functions that give one wide character return it widened to an int. */
VX_API int vx_stdlist_hemisphere_tostr(const Tvx_stdlist_string* sheet);
VX_API const wchar_t* vx_stdlist_scale_tostr(const Tvx_stdlist_string* sheet);
VX_API const wchar_t* vx_stdlist_type_tostr(const Tvx_stdlist_string* sheet);
/* Which types to offer at the sheet's latitude; writes all four elements, indexed type minus one. */
VX_API void vx_stdlist_fetch_supported_types(const Tvx_stdlist_string* sheet, bool types[4]);
VX_API double vx_stdlist_get_mid_meridian(const Tvx_stdlist_string* sheet);
/* Feeds the designation, such as "N-37-VI,38-I", in exactly one feed. */
VX_API void vx_stdlist_to_string(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink);
/* Neighbours of a 1:200,000 sheet (single, double or triple): feeds four designations, in the order
 * left, right, upper, lower, and returns true. At any other scale it feeds nothing and returns false.
 * (An addition of this build for hosts and tools; the sheet generator uses the same rules.) */
VX_API bool vx_stdlist_fetch_neighbours(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink);
/* The box of a valid sheet in degrees of its geographic system (Pulkovo 1942), longitudes xmin to xmax
 * and latitudes ymin to ymax, by the rules with which the sheet generator lays sheets out: bands of 4
 * degrees from the equator, columns of 6 degrees from 180 degrees west, and each finer level cut from
 * its parent sheet into its grid (1:500,000, 1:50,000, 1:25,000 and 1:10,000 two by two; 1:200,000 six
 * by six; 1:100,000 twelve by twelve). The rows of every level count from the parent's north edge in
 * the north and from its south edge in the south, so that a southern sheet is the mirror image of the
 * northern sheet of the same designation. A joined sheet spans its sheets eastwards; across the date
 * line its east edge lies beyond 180 degrees. At 1:1,000,000 and 1:200,000 the four values are exactly
 * the generator's. False, with four zeros, for a record that is not valid. (An addition of this build
 * for hosts and tools.) */
VX_API bool vx_stdlist_get_box(const Tvx_stdlist_string* sheet, double* xmin, double* xmax, double* ymin,
                               double* ymax);
/* Makes the record the single sheet at `scale` (1:1,000,000 to 1:10,000) in `hemisphere` whose box, as
 * vx_stdlist_get_box gives it, holds the point (degrees; any longitude, taken modulo 360). A point on an
 * edge between sheets belongs to the sheet east of it and to the one farther from the equator, and a
 * point on the equator to the hemisphere asked for; the edge at 88 degrees belongs to the last band,
 * "V". False, with the record unchanged, for a scale outside the series, a point that is not finite, or
 * a latitude outside the hemisphere's bands (0 to 88 north, -88 to 0 south: the polar caps beyond have
 * no sheets). (An addition of this build for hosts and tools.) */
VX_API bool vx_stdlist_init_at(Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale,
                               Tvx_stdlist_hemisphere hemisphere, double lon, double lat);

/* Million sheet: band letter "A" to "V" (index 1 to 22) and column number 1 to 60. */
VX_API uint64_t vx_stdlist_get_mln_letter_idx(const Tvx_stdlist_string* sheet);
VX_API bool vx_stdlist_set_mln_letter_idx(Tvx_stdlist_string* sheet, uint64_t index);
VX_API int vx_stdlist_get_mln_letter(const Tvx_stdlist_string* sheet);
VX_API bool vx_stdlist_set_mln_letter(Tvx_stdlist_string* sheet, wchar_t letter);
VX_API uint64_t vx_stdlist_get_mln_number(const Tvx_stdlist_string* sheet);
VX_API void vx_stdlist_get_mln_number_str(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink);
VX_API bool vx_stdlist_set_mln_number(Tvx_stdlist_string* sheet, uint64_t number);
VX_API bool vx_stdlist_set_mln_number_str(Tvx_stdlist_string* sheet, const wchar_t* text);

/* 1:500,000: letter "А" to "Г" (index 1 to 4). */
VX_API uint64_t vx_stdlist_get_500_letter_idx(const Tvx_stdlist_string* sheet);
VX_API int vx_stdlist_get_500_letter(const Tvx_stdlist_string* sheet);
VX_API bool vx_stdlist_set_500_letter_idx(Tvx_stdlist_string* sheet, uint64_t index);
VX_API bool vx_stdlist_set_500_letter(Tvx_stdlist_string* sheet, wchar_t letter);

/* 1:200,000: Roman numeral "I" to "XXXVI" (index 1 to 36). */
VX_API uint64_t vx_stdlist_get_200_roman_idx(const Tvx_stdlist_string* sheet);
VX_API void vx_stdlist_get_200_roman(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink);
VX_API bool vx_stdlist_set_200_roman_idx(Tvx_stdlist_string* sheet, uint64_t index);
VX_API bool vx_stdlist_set_200_roman(Tvx_stdlist_string* sheet, const wchar_t* numeral);

/* 1:100,000: number 1 to 144. Setting its text out of range leaves the number as it was. */
VX_API uint64_t vx_stdlist_get_100_number(const Tvx_stdlist_string* sheet);
VX_API void vx_stdlist_get_100_number_str(const Tvx_stdlist_string* sheet, Ivx_string_adp* sink);
VX_API bool vx_stdlist_set_100_number(Tvx_stdlist_string* sheet, uint64_t number);
VX_API void vx_stdlist_set_100_number_str(Tvx_stdlist_string* sheet, const wchar_t* text);

/* 1:50,000: letter "А" to "Г". Setting the letter returns the index stored. */
VX_API uint64_t vx_stdlist_get_50_letter_idx(const Tvx_stdlist_string* sheet);
VX_API int vx_stdlist_get_50_letter(const Tvx_stdlist_string* sheet);
VX_API bool vx_stdlist_set_50_letter_idx(Tvx_stdlist_string* sheet, uint64_t index);
VX_API uint64_t vx_stdlist_set_50_letter(Tvx_stdlist_string* sheet, wchar_t letter);

/* 1:25,000: letter "а" to "г". The index setter stores any value; the getter reads 0 out of range. */
VX_API uint64_t vx_stdlist_get_25_letter_idx(const Tvx_stdlist_string* sheet);
VX_API int vx_stdlist_get_25_letter(const Tvx_stdlist_string* sheet);
VX_API void vx_stdlist_set_25_letter_idx(Tvx_stdlist_string* sheet, uint64_t index);
VX_API uint64_t vx_stdlist_set_25_letter(Tvx_stdlist_string* sheet, wchar_t letter);

/* 1:10,000: number 1 to 4. Its text travels as one character, "1" to "4" or "?". */
VX_API uint64_t vx_stdlist_get_10_number(const Tvx_stdlist_string* sheet);
VX_API int vx_stdlist_get_10_number_str(const Tvx_stdlist_string* sheet);
VX_API bool vx_stdlist_set_10_number(Tvx_stdlist_string* sheet, uint64_t number);
VX_API uint64_t vx_stdlist_set_10_number_str(Tvx_stdlist_string* sheet, wchar_t digit);

/* ===================================================================================================
 * Shape file reprojection
 * =================================================================================================== */

/* @section reproj-shp */

/* Rewrites the shape file src_file (.shp with its .shx) into the coordinate system dst_proj, from
 * src_proj, as the shape file dst_file: record by record, in the same order and with the same number of
 * records. The projections are PROJ strings (the text itself, never a file name).
 *   - A record that cannot be transformed (a vertex outside the projection's domain) is written as a
 *     null record, so that record i of the result still belongs to row i of the table; the run goes on.
 *     So is a record that cannot be read whole (a damaged source: a file cut short, counts that do not
 *     fit the record), and the damage is reported through the host environment.
 *   - Measured records (PointM, PolyLineM, PolygonM, MultiPointM) are written as their plain types
 *     without measures; records with z keep their z values unchanged.
 *   - The .dbf and .cpg of the source are copied byte for byte beside the result, replacing any there;
 *     a source without them leaves none. One that exists and cannot be copied is reported. No .prj is
 *     written.
 *   - An existing dst_file and its .shx are replaced, written in place as the run goes: a run that
 *     fails half-way leaves a half-written destination. (The vxk program writes under temporary names
 *     and renames into place instead.)
 * False when the transformation cannot be built from the two texts, and when a file the run would
 * write is a file it reads (the same path, another spelling of it, or a link: compared by identity);
 * then no file is touched, and the reason (for the transformation: which text PROJ refused, and PROJ's
 * reason) is reported through the host environment.
 * Otherwise true, also when files fail: a source that cannot be opened or is not a shape file (wrong
 * file code, shorter than a header, a folder) is reported and gets no destination at all; a read, write
 * or copy that fails is reported with the file's name and the system's reason, and the run goes on.
 * PROJ prints nothing: the library catches PROJ's log on PROJ's default context, and passes each text
 * on as a message through the host environment once, with the number of times PROJ gave it.
 * Narrow texts are UTF-8. */
VX_API bool vx_proj4_shp(const char* src_file, const char* src_proj, const char* dst_file,
                         const char* dst_proj);
VX_API bool vx_proj4_shp_w(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                           const wchar_t* dst_proj);

/* vx_proj4_shp for callers that show progress or must tell a good run from a lossy one (the vxk
 * program): the same run and result, with two additions. progress, if not null, is called after each
 * record with the number of records done and the number in the source, and user as given. counts, if
 * not null, receives:
 *   records      the number of records written;
 *   failed       of these, null records written because their transformation failed;
 *   unreadable   records of the source that could not be read (the source is damaged): null records
 *                written in their place, and records that the source's index counts but no longer
 *                holds (a cut-off .shx), which have no place in the result; null records of the source
 *                itself count in neither;
 *   file_errors  failures of files (a source that cannot be opened or is not a shape file, a read, a
 *                write, a copy of the .dbf or .cpg), each reported through the host environment. A run
 *                with file errors has not produced a complete result. */
typedef void (*vx_proj4_shp_progress_t)(uint32_t done, uint32_t total, void* user);
typedef struct vx_proj4_shp_counts {
  uint32_t records;
  uint32_t failed;
  uint32_t unreadable;
  uint32_t file_errors;
} vx_proj4_shp_counts;
VX_API bool vx_proj4_shp_ex(const char* src_file, const char* src_proj, const char* dst_file,
                            const char* dst_proj, vx_proj4_shp_progress_t progress, void* user,
                            vx_proj4_shp_counts* counts);

/* ===================================================================================================
 * Point and object vectors
 * =================================================================================================== */

/* @section vectors */

/* A point vector (Tvx_pp2d) is an ordered, growable list of vertices, addressed from 0: one line or
 * ring. An object vector (Tvx_op2d) is an ordered list of point vectors, its parts: the geometry of one
 * shape record. A part belongs to its object vector and stays valid until that is cleared or destroyed.
 * Reading an index out of range gives (0, 0); writing one does nothing. */
typedef struct Tvx_pp2d Tvx_pp2d;
typedef struct Tvx_op2d Tvx_op2d;

/* Null when memory runs out. */
VX_API Tvx_pp2d* vx_pv_d2_create(void);
VX_API void vx_pv_d2_destroy(Tvx_pp2d* vector);
VX_API void vx_pv_d2_clear(Tvx_pp2d* vector);
/* The size becomes exactly count; new vertices are (0, 0). A count the memory cannot hold, or above
 * INT32_MAX, leaves the vector as it was. */
VX_API void vx_pv_d2_set_size(Tvx_pp2d* vector, uint32_t count);
VX_API uint32_t vx_pv_d2_get_size(const Tvx_pp2d* vector);
VX_API Tvx_vtx_d2 vx_pv_d2_get_vtx(const Tvx_pp2d* vector, uint32_t index);
VX_API void vx_pv_d2_set_vtx(Tvx_pp2d* vector, uint32_t index, Tvx_vtx_d2 vertex);
/* Appends the vertex, also when it equals the last one: duplicates are kept. */
VX_API void vx_pv_d2_add_vtx(Tvx_pp2d* vector, Tvx_vtx_d2 vertex);
/* Appends a copy of all the other's vertices in their order (the vector itself may be given). */
VX_API void vx_pv_d2_add_pv(Tvx_pp2d* vector, const Tvx_pp2d* other);
/* Replaces the content by a copy of the other's. */
VX_API void vx_pv_d2_assign(Tvx_pp2d* vector, const Tvx_pp2d* other);
/* The sum of the plane distances of neighbouring vertices. */
VX_API double vx_pv_d2_get_length(const Tvx_pp2d* vector);

/* Null when memory runs out. */
VX_API Tvx_op2d* vx_ov_d2_create(void);
/* Appends a new empty part and gives it; null when memory runs out. */
VX_API Tvx_pp2d* vx_ov_d2_add(Tvx_op2d* object);
/* Removes (and destroys) all parts. */
VX_API void vx_ov_d2_clear(Tvx_op2d* object);
/* Destroys the object vector with its parts. */
VX_API void vx_ov_d2_destroy(Tvx_op2d* object);

/* ===================================================================================================
 * Shape and table writers
 * =================================================================================================== */

/* @section writers */

/* A shape file open for writing: the .shp with its .shx, of one shape type. */
typedef struct Tvx_shp_basic Tvx_shp_basic;

/* Shape type codes of the ESRI format that the writer takes. */
enum { VX_SHP_POINT = 1, VX_SHP_POLYLINE = 3, VX_SHP_POLYGON = 5 };

/* Creates the shape file and its index (replacing files of the same names) for records of the type 1, 3
 * or 5. Null when the files cannot be created (a missing folder among the causes) or for another type. */
VX_API Tvx_shp_basic* vx_shp_file_create_w(const wchar_t* path, int type);
/* Appends one polyline (3) or polygon (5) record whose parts are the object vector's parts, in order,
 * with their vertices as they stand: a ring is neither closed nor turned. The type must be the file's;
 * false for another type. */
VX_API bool vx_shp_file_add_polypoint(Tvx_shp_basic* file, Tvx_op2d* object, int type);
/* Appends one point record to a point file; false for a file of another type. */
VX_API bool vx_shp_file_add_point(Tvx_shp_basic* file, Tvx_vtx_d2 point);
/* Finishes the headers, the bounding box and the index, and releases the handle (null is allowed). */
VX_API void vx_shp_file_close(Tvx_shp_basic* file);

/* The description of one column of a table: 14 bytes, filled by vx_dbf_field_init. */
typedef struct Tvx_dbf_field {
  char name[11]; /* up to 10 characters and the terminating zero */
  uint8_t type;  /* VX_DBF_CHARACTER or VX_DBF_NUMERIC */
  uint8_t width;
  uint8_t decimals;
} Tvx_dbf_field;

/* Column type codes. */
enum { VX_DBF_CHARACTER = 1, VX_DBF_NUMERIC = 2 };

/* Fills the description: the name cut to 10 characters, the type code, the width (1 to 254) and the
 * decimals. False, with the description emptied, for another type or a width out of range. */
VX_API bool vx_dbf_field_init(Tvx_dbf_field* field, const char* name, int type, int width, int decimals);
/* Creates the table (dBASE III, replacing a file of the same name) with these columns and that many
 * empty records already present. reserved must be 0. Null when the file cannot be created, or when a
 * column description is not filled. The handle is an untyped pointer, released by vx_dbf_close. */
VX_API void* vx_dbf_create_w(const wchar_t* path, int column_count, int record_count,
                             const Tvx_dbf_field* fields, int reserved);
/* The number of records. */
VX_API int32_t vx_dbf_get_nr(void* table);
/* Appends count empty records. */
VX_API bool vx_dbf_add_records(void* table, int count);
/* Stores a number, negative values included. Column and record count from 0; false, with nothing
 * written, for a column or record that the table does not have. */
VX_API bool vx_dbf_set_int(void* table, int column, int record, int32_t value);
/* Stores the bytes of the text unchanged (the caller's code page, Windows-1251 for this library's own
 * texts), cut to the column's width. */
VX_API bool vx_dbf_set_str(void* table, int column, int record, const char* text);
/* Finishes the file and releases the handle (null is allowed). */
VX_API void vx_dbf_close(void* table);

/* ===================================================================================================
 * Shape file reader
 * =================================================================================================== */

/* @section reader */

/* A shape file open for reading with its table: the .shp, its index .shx (through which every record
 * is reached) and, when one stands beside it, the .dbf of the same name. For hosts that draw or check
 * what the library wrote (the vxk program draws generated sheets with it); any shape file can be read.
 *
 * A damaged file is read as far as it holds together and never beyond: the record count is what the
 * index holds, a record's parts and vertices are cut to what the record holds, the row count of the
 * table to what its file can hold; a null record, or one that the index places outside the file, has
 * no parts, and a value that the file does not hold is empty.
 *
 * Values are decoded by the code page that the .cpg beside the table names: "UTF-8", or a Windows code
 * page by its number ("1251"), also after "CP", "WINDOWS-" or "ANSI " ("CP1251" is GDAL's form).
 * Without a .cpg, or with another text in it, by Windows-1251, the code page of the library's tables. */
typedef struct Tvx_shp_reader Tvx_shp_reader;

/* Opens the shape file (the path of its .shp) with its index, and its table when there is one. Null when
 * the .shp or the .shx cannot be opened, or when memory runs out. */
VX_API Tvx_shp_reader* vx_shp_reader_open_w(const wchar_t* path);
/* Closes the files and releases the handle (null is allowed). */
VX_API void vx_shp_reader_close(Tvx_shp_reader* reader);
/* The shape type of the file's header, a code of the ESRI format (VX_SHP_POINT, VX_SHP_POLYLINE,
 * VX_SHP_POLYGON, 8 multipoint, 11 to 18 with z, 31 multipatch); the measured types give their plain
 * types (21 gives 1). */
VX_API int vx_shp_reader_get_type(const Tvx_shp_reader* reader);
/* The number of records. */
VX_API uint32_t vx_shp_reader_get_count(const Tvx_shp_reader* reader);
/* Reads the record (counted from 0) and gives its number of parts: 1 for a point (one vertex) and for a
 * multipoint (all its points), the parts of a polyline, a polygon (its rings as stored) or a multipatch;
 * 0 for a null record, a record out of range or one that cannot be read. Only x and y are kept. The
 * record replaces the one read before. */
VX_API uint32_t vx_shp_reader_read(Tvx_shp_reader* reader, uint32_t record);
/* Copies a part of the record read last into the point vector, replacing its content; false, with the
 * vector emptied, for a part that the record does not have. */
VX_API bool vx_shp_reader_get_part(const Tvx_shp_reader* reader, uint32_t part, Tvx_pp2d* vector);
/* The table: its rows (0 without a table) and columns, a column's name (empty out of range) and the
 * column of a name (compared without regard to case and surrounding blanks; -1 when there is none). */
VX_API uint32_t vx_shp_reader_get_row_count(const Tvx_shp_reader* reader);
VX_API uint32_t vx_shp_reader_get_column_count(const Tvx_shp_reader* reader);
VX_API const wchar_t* vx_shp_reader_get_column_name(Tvx_shp_reader* reader, uint32_t column);
VX_API int32_t vx_shp_reader_find_column(Tvx_shp_reader* reader, const wchar_t* name);
/* A value as text, rows and columns counted from 0: the field's characters without the blanks at both
 * ends (a number as it is written in the file, such as "400901" or "-1"); empty for a row or column
 * out of range. Never null; the text stays valid until the next call on the reader. */
VX_API const wchar_t* vx_shp_reader_get_value(Tvx_shp_reader* reader, uint32_t row, uint32_t column);

/* ===================================================================================================
 * Projection files and the batch reprojector
 * =================================================================================================== */

/* @section proj-services */

/* Projection texts here are PROJ strings ("+proj=tmerc +lon_0=39 +ellps=krass ..."), never paths. */

/* True when the text is a geographic system: its "+proj" is "longlat" or "latlong" (any case). */
VX_API bool vx_pj4_is_longlat_w(const wchar_t* proj);
/* Reads the projection text of a .pj4 file (one line of UTF-8) and feeds it into the sink. A file
 * that is missing, empty or longer than 64 KiB in its first line feeds nothing and gives false. */
VX_API bool vx_pj4_load_simple_w(const wchar_t* path, Ivx_string_adp* sink);
/* Writes the projection text beside a shape file: shape_path with its extension changed to ".pj4",
 * one line of UTF-8 ended by a line feed. Line breaks inside the text become blanks, so that the file
 * keeps one line. True when the file was written. */
VX_API bool vx_pj4_save_w(const wchar_t* shape_path, const wchar_t* proj);
/* Feeds the same coordinate system as ESRI WKT, the text of a .prj file, into the sink (PROJ's own
 * conversion). A text that PROJ cannot turn into a coordinate system feeds nothing and gives false. */
VX_API bool vx_pj4_export_esri(const wchar_t* proj, Ivx_string_adp* sink);

/* The batch reprojector: one transformation applied to every vertex of a point vector (a
 * vx_pv_d2 handle) in one go. Create, init, apply, destroy. */
typedef struct Tvx_rpj_fb_d2 Tvx_rpj_fb_d2;

/* Null when memory runs out. */
VX_API Tvx_rpj_fb_d2* vx_rpj_fb_d2_create(void);
/* Builds the transformation between two projection texts; false when it cannot be built, and the
 * reprojector then changes nothing. */
VX_API bool vx_rpj_fb_d2_init_w(Tvx_rpj_fb_d2* reprojector, const wchar_t* src_proj, const wchar_t* dst_proj);
/* mode 1: every vertex of the vector is replaced in place by its image. A vertex that cannot be
 * transformed keeps its source coordinates, and the result is then false; the others are transformed
 * all the same. Any other mode changes nothing and gives false. */
VX_API bool vx_rpj_fb_d2_apply_pv(Tvx_rpj_fb_d2* reprojector, Tvx_pp2d* vector, int mode);
VX_API void vx_rpj_fb_d2_destroy(Tvx_rpj_fb_d2* reprojector);

/* ===================================================================================================
 * Projection strings: the GDAL form, descriptions, equivalence and the catalogue of projections
 * =================================================================================================== */

/* @section proj-strings */

/* Feeds the projection text in the form that GDAL takes (one row, UTF-8 text as wide text). The text is
 * read as the library reads every PROJ string: its known parameters are kept (in the library's order and
 * to 12 significant digits), everything else is dropped. A Lambert conformal conic ("+proj=lcc") gets
 * "+lat_2" and "+lat_0" equal to "+lat_1" where they are missing, and the text ends in "+no_defs"
 * without the "+lon_wrap=45" that the library gives PROJ for its own reprojections. So
 * "+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80" becomes
 * "+proj=lcc +lon_0=10 +lat_0=45 +lat_1=45 +lat_2=45 +ellps=GRS80 +no_defs". Note that a two-parallel
 * conic without "+lat_0" gets its origin on "+lat_1" too, where PROJ would put it on the equator.
 * A text with no known parameter feeds nothing and gives false. */
VX_API bool vx_pj4_export_gdal(const wchar_t* proj, Ivx_string_adp* sink);

/* Feeds a description of the projection text for people, one row per line "label = value", in the
 * order: projection, zone, central meridian, centre of projection, latitude of origin, false easting
 * and northing, standard parallels, scale factor, azimuth, datum, datum parameters, spheroid, semi-axes
 * and inverse flattening; a parameter the text lacks has no line, and "+south", "+units" and
 * "+nadgrids" have none. A text without any of them gives the one line "Projection = Unknown".
 * language: as for vx_res_set_lng, 0 Russian and any other value English; pass vx_res_get_lng() for
 * the host's language. The language of the library's other messages is not changed. Example, English,
 * for "+proj=tmerc +lon_0=39 +ellps=krass": "Projection = tmerc", "Central Meridian = 39",
 * "Spheroid = krass". */
VX_API void vx_pj4_describe_w(const wchar_t* proj, int language, Ivx_string_adp* sink);

/* Whether two texts describe the same coordinate system, as PROJ judges it: 1 the same, 0 not, -1 PROJ
 * cannot read the first text, -2 it can read the first but not the second. The texts go to PROJ as they
 * stand and may be anything PROJ reads: PROJ strings, "EPSG:4326", WKT, PROJJSON, "+init=epsg:4326".
 * Geographic systems that differ only in the order of their axes are the same; names do not count.
 * Note that PROJ reads a PROJ string without "+type=crs" as an operation, not a system, and two
 * operations are the same only when their texts are: "+proj=utm +zone=37 +datum=WGS84" and
 * "+zone=37 +proj=utm +datum=WGS84" give 0, and give 1 with "+type=crs" added to both. 0 also when
 * memory runs out. */
VX_API int vx_pj4_equivalent_w(const wchar_t* a, const wchar_t* b);

/* Feeds the library's catalogue of projections, one row per entry, fields separated by tabs:
 *   index (from 1), caption, further caption (may be empty), the entry's PROJ string with its defaults
 *   (ending in "+no_defs"), then one field per parameter that a user sets or sees, "name=default",
 *   followed by " [min,max]" for a number with limits.
 * For example "126\tUTM\tzone 37, northern hemisphere\t+proj=utm +zone=37 +datum=WGS84 +units=m
 * +no_defs\tzone=37\tdatum=WGS84" (one line). The catalogue holds geographic coordinates, the usual
 * cylindrical, conic and azimuthal projections, 60 Gauss-Kruger zones ("+proj=tmerc", no earth given:
 * add "+ellps=krass" and the datum shift) and 120 UTM zones on WGS 84.
 * With proj null or empty, every entry; otherwise only the entry that the projection of that PROJ
 * string fits, and false when none does: a transverse Mercator with the central meridian, false easting,
 * scale and origin of a Gauss-Kruger zone finds that zone; a text with "+zone" finds the entry of that
 * "+proj", zone and hemisphere, or nothing; anything else finds the first entry of that "+proj" that
 * has every latitude and scale parameter the text gives and whose pole or hemisphere, if it has one,
 * is the text's. */
VX_API bool vx_pj4_fetch_catalogue(const wchar_t* proj, Ivx_string_adp* sink);

/* ===================================================================================================
 * Text lists, TLD files and their reprojection
 * =================================================================================================== */

/* @section text-lists */

/* A label's points and callout end points are vertices (Tvx_vtx_d2, above), in the units of the list's
 * coordinate system (degrees, longitude first, in a geographic one). */

/* A text list is an ordered list of labels ("text data"). Each label has a type, a number of points at
 * which it stands, a size, a delta x and a delta y (one per point for type 2, a single one at index 0
 * for every other type, also when the label has no point), its text, font name, colour, style bits,
 * alignment and angle, and at most one callout: a set of end points to which leader lines are drawn.
 * Sizes and deltas are lengths in map units.
 *
 * Text data and callout handles belong to their list: they stay valid while the list lives, until
 * vx_text_list_clear, or for a callout until vx_text_data_remove_callout. Reading an index out of range
 * gives zeros; writing one does nothing. */
typedef struct Tvx_text_list_base Tvx_text_list_base;
typedef struct Tvx_text_data Tvx_text_data;
typedef struct Tvx_callout Tvx_callout;

/* Type of a label with a size and deltas at every point (text set along a line). */
#define VX_TEXT_TYPE_PER_POINT 2

VX_API Tvx_text_list_base* vx_text_list_create(void);
VX_API void vx_text_list_destroy(Tvx_text_list_base* list);
VX_API unsigned vx_text_list_get_size(const Tvx_text_list_base* list);
/* The label at index, null when the index is out of range. */
VX_API Tvx_text_data* vx_text_list_at(Tvx_text_list_base* list, unsigned index);
/* Appends a new label (type 1, no point, size and deltas 0, empty texts, black, no callout) and gives
 * it back; null when memory runs out. */
VX_API Tvx_text_data* vx_text_list_add(Tvx_text_list_base* list);
/* Removes every label. */
VX_API void vx_text_list_clear(Tvx_text_list_base* list);

VX_API int vx_text_data_get_type(const Tvx_text_data* text);
/* Changing the type re-fits the sizes and deltas: a type 2 label keeps one per point (at least one),
 * any other type keeps only the one at index 0. */
VX_API void vx_text_data_set_type(Tvx_text_data* text, int type);
VX_API unsigned vx_text_data_get_count(const Tvx_text_data* text);
/* Sets the number of points; new points are (0, 0) with size and deltas 0. False when memory runs out,
 * with the label unchanged. */
VX_API bool vx_text_data_set_count(Tvx_text_data* text, unsigned count);
/* Appends a point (with size and deltas 0 for type 2); false when memory runs out. */
VX_API bool vx_text_data_add_point(Tvx_text_data* text, Tvx_vtx_d2 point);
VX_API Tvx_vtx_d2 vx_text_data_get_point(const Tvx_text_data* text, unsigned index);
VX_API void vx_text_data_set_point(Tvx_text_data* text, Tvx_vtx_d2 point, unsigned index);
/* Number of sizes (and deltas) the label holds: its point count for type 2 with more than one point,
 * 1 otherwise. */
VX_API unsigned vx_text_data_get_size_count(const Tvx_text_data* text);
VX_API double vx_text_data_get_size(const Tvx_text_data* text, unsigned index);
VX_API double vx_text_data_get_delta_x(const Tvx_text_data* text, unsigned index);
VX_API double vx_text_data_get_delta_y(const Tvx_text_data* text, unsigned index);
VX_API void vx_text_data_set_size(Tvx_text_data* text, double size, unsigned index);
VX_API void vx_text_data_set_delta_x(Tvx_text_data* text, double delta_x, unsigned index);
VX_API void vx_text_data_set_delta_y(Tvx_text_data* text, double delta_y, unsigned index);

/* The label's text and font name. The pointer stays valid until the text is set again or the label
 * goes; it is never null. Setting null stores the empty text; false when memory runs out. */
VX_API const wchar_t* vx_text_data_get_text(const Tvx_text_data* text);
VX_API bool vx_text_data_set_text(Tvx_text_data* text, const wchar_t* value);
VX_API const wchar_t* vx_text_data_get_font_name(const Tvx_text_data* text);
VX_API bool vx_text_data_set_font_name(Tvx_text_data* text, const wchar_t* value);
/* Colour as 0xAARRGGBB; a new label is opaque black, 0xFF000000. */
VX_API uint32_t vx_text_data_get_color(const Tvx_text_data* text);
VX_API void vx_text_data_set_color(Tvx_text_data* text, uint32_t color);
/* Style bits, stored and carried as they are: VX_TEXT_STYLE_* or the host's own. */
#define VX_TEXT_STYLE_BOLD 1u
#define VX_TEXT_STYLE_ITALIC 2u
#define VX_TEXT_STYLE_UNDERLINE 4u
#define VX_TEXT_STYLE_STRIKEOUT 8u
VX_API uint32_t vx_text_data_get_style(const Tvx_text_data* text);
VX_API void vx_text_data_set_style(Tvx_text_data* text, uint32_t style);
/* Where the point stands in the text's box, stored and carried as it is; by convention 0 to 8 row by
 * row from the top left (0 top left, 4 centre, 6 bottom left). */
VX_API int32_t vx_text_data_get_align(const Tvx_text_data* text);
VX_API void vx_text_data_set_align(Tvx_text_data* text, int32_t align);
/* Angle of the text's base line in degrees, counter-clockwise from the x axis. Reprojection leaves it
 * as it is, as it leaves the direction of the deltas. */
VX_API double vx_text_data_get_angle(const Tvx_text_data* text);
VX_API void vx_text_data_set_angle(Tvx_text_data* text, double angle);

/* The label's callout, null when it has none. */
VX_API Tvx_callout* vx_text_data_get_callout(Tvx_text_data* text);
/* Gives the label a callout with no end points, or gives back the one it has; null when memory runs
 * out. */
VX_API Tvx_callout* vx_text_data_add_callout(Tvx_text_data* text);
VX_API void vx_text_data_remove_callout(Tvx_text_data* text);
VX_API unsigned vx_callout_get_size(const Tvx_callout* callout);
VX_API Tvx_vtx_d2 vx_callout_get_end_point(const Tvx_callout* callout, unsigned index);
VX_API void vx_callout_set_end_point(Tvx_callout* callout, Tvx_vtx_d2 point, unsigned index);
/* Appends an end point; false when memory runs out. */
VX_API bool vx_callout_add_end_point(Tvx_callout* callout, Tvx_vtx_d2 point);

/* TLD files: a text list on disk (docs/tld-format.md). vx_tld_file_open_w serves both sides of a copy:
 * it succeeds on an existing readable file, and on a missing file whose folder exists, which
 * vx_tld_file_write_all will create. Nothing is read or written until those calls. */
typedef struct Tvx_tld_file Tvx_tld_file;

VX_API Tvx_tld_file* vx_tld_file_open_w(const wchar_t* path);
/* Replaces the list's content with the labels of the file. A file that is missing, truncated or
 * inconsistent gives false; the list then holds the labels read completely before the defect, and
 * vx_tld_file_get_error tells what was wrong. */
VX_API bool vx_tld_file_read_all(Tvx_tld_file* file, Tvx_text_list_base* list);
/* Writes the whole list, replacing the file. mode must be 0 (the only mode); any other value writes
 * nothing and gives false. The file is written under a fresh name in its folder (the folder of the file
 * a link points to) and renamed over the old one only when it is complete and on the disk, keeping the
 * old file's modes: a write that fails (a full disk, a file size limit, a folder where no file can be
 * made) gives false and leaves the earlier file as it was. */
VX_API bool vx_tld_file_write_all(Tvx_tld_file* file, const Tvx_text_list_base* list, int mode);
/* The reason of the last failed read or write of this handle, empty after a success. Valid until the
 * next call on the handle. */
VX_API const wchar_t* vx_tld_file_get_error(const Tvx_tld_file* file);
VX_API void vx_tld_file_close(Tvx_tld_file* file);

/* Reprojection of labels between two projection texts (PROJ strings, not paths): the points, the
 * callout end points, and the sizes and deltas, multiplied by one length factor k taken at the origin
 * of the source system (the length of the image of the diagonal from (0, 0) to (1, 1), divided by the
 * root of 2; 1 when that diagonal cannot be transformed). A type 2 label has its sizes and deltas
 * rescaled at every point, any other type at index 0 only. The deltas keep their direction. A point
 * that cannot be transformed keeps its source position and does not fail the call. */

/* The list is changed in place; false, with the list untouched, when the transformation cannot be
 * built (the reason is reported through the host environment). */
VX_API bool vx_proj4_text_list_w(Tvx_text_list_base* list, const wchar_t* src_proj, const wchar_t* dst_proj);
/* A TLD file to another (they may be the same file). False when a file cannot be opened, or when the
 * transformation cannot be built: the destination then still receives the source's labels unchanged.
 * The source is opened as vx_tld_file_open_w opens any file, so a missing source in an existing folder
 * reads as an empty list: the result is then true and the destination an empty label file. A source
 * that cannot be read whole gives the labels read before the defect. The destination is replaced as
 * vx_tld_file_write_all replaces it, so a failed write leaves it (and a source given as destination)
 * as it was. Every failure (a file that cannot be opened, read or written, a transformation that
 * cannot be built, with which text PROJ refused and why) is reported through the host environment;
 * PROJ's own reports pass through it as messages, each text once with its count. */
VX_API bool vx_proj4_tld_w(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                           const wchar_t* dst_proj);
/* The same with UTF-8 texts. */
VX_API bool vx_proj4_tld(const char* src_file, const char* src_proj, const char* dst_file,
                         const char* dst_proj);
/* Reserved; does nothing and always gives false. */
VX_API bool vx_proj4_xsp(const char* src_file, const char* src_proj, const char* dst_file,
                         const char* dst_proj);

/* ===================================================================================================
 * Sheet generation
 * =================================================================================================== */

/* @section generation */

/* The shape files that draw one standard sheet at 1:1,000,000 or 1:200,000, or one free box of
 * coordinates: first in the scene projection under "HYPS/" and "FRAME/" of the output directory, then
 * again in the sheet's geographic system (Pulkovo 1942, the style library's std_list/proj0.pj4) under
 * "latlong/HYPS/" and "latlong/FRAME/". Beside each shape file stand its table (.dbf, texts in
 * Windows-1251), a .prj in ESRI WKT and a .pj4 with the PROJ string. This build writes the sheet's area,
 * "HYPS/Hypsa.shp": one polygon round the sheet on its lattice of pivot points, with the columns ID (1),
 * L_CODE (-1) and NAME (the designation, or "Base list" for a free box). The latlong .prj always
 * describes Pulkovo 1942.
 *
 * The four folders must exist: the library creates none. The output directory is joined to the folder
 * names as it stands, so it must end in a separator ("/" or "\"; a "\" in a path is a folder separator).
 * Existing files of the same names are replaced. Generation runs on the caller's thread; two sheets must
 * not be generated at the same time. */

/* Parameters of a standard sheet. They refer to the caller's record, which must outlive them, and
 * read it at each generate call. */
typedef struct Tvx_stdlist_params Tvx_stdlist_params;

/* New parameters bound to the record, with every division 0 and empty texts; null when memory runs out.
 * A null record is taken, and the generate call then refuses. */
VX_API Tvx_stdlist_params* vx_stdlist_params_create(const Tvx_stdlist_string* sheet);
VX_API void vx_stdlist_params_destroy(Tvx_stdlist_params* params);
/* The folder under which the four output folders stand; it must end in a separator. */
VX_API void vx_stdlist_params_set_output_dir(Tvx_stdlist_params* params, const wchar_t* dir);
/* Divisions of the sheet's height: the main parallels cut it into `main` equal parts (main - 1 inner
 * lines), and the marks cut each part again into `additional`. Both must be 1 or more. */
VX_API void vx_stdlist_params_set_lat_divs(Tvx_stdlist_params* params, int main, int additional);
/* The same for the sheet's width and its meridians. */
VX_API void vx_stdlist_params_set_lon_divs(Tvx_stdlist_params* params, int main, int additional);
/* The PROJ string of the scene: the coordinate system of the drawing (metres, or degrees when it is
 * geographic). */
VX_API void vx_stdlist_params_set_scene_proj(Tvx_stdlist_params* params, const wchar_t* proj);
/* Generates the sheet. Refused, with nothing written, false and a message in the host environment
 * (English, or Russian when vx_res_get_lng gives 0): a null record, a scale other than 1:1,000,000 and
 * 1:200,000, a division below 1, or more than 100,000 lines or marks along one axis. Otherwise true when
 * every step succeeded; false when a file could not be created (a missing folder among the causes), when
 * the scene projection or the style library's geographic system is missing, or when memory ran out (the
 * reason is reported); the files written before the failure stay. The designation is not validated: a
 * record with levels out of range is drawn where its numbers put it. */
VX_API bool vx_stdlist_generate_shapes(Tvx_stdlist_params* params);

/* Parameters of a free box: longitudes xmin to xmax and latitudes ymin to ymax in degrees of the sheet's
 * geographic system, with main lines at multiples of the grid steps. */
typedef struct Tvx_stdlist_custom_params Tvx_stdlist_custom_params;

/* New parameters with the box not set and steps 0; null when memory runs out. */
VX_API Tvx_stdlist_custom_params* vx_stdlist_custom_params_create(void);
VX_API void vx_stdlist_custom_params_destroy(Tvx_stdlist_custom_params* params);
/* The box in the order x minimum, x maximum, y minimum, y maximum. */
VX_API void vx_stdlist_custom_params_set_box(Tvx_stdlist_custom_params* params, double xmin, double xmax,
                                             double ymin, double ymax);
VX_API void vx_stdlist_custom_params_set_output_dir(Tvx_stdlist_custom_params* params, const wchar_t* dir);
/* Distances in degrees between the main meridians and between the main parallels. The marks stand at
 * whole steps from the box's edge: a fractional step loses its fraction for them, and a step below 1
 * gives no marks. */
VX_API void vx_stdlist_custom_params_set_grid_steps(Tvx_stdlist_custom_params* params, double x_step,
                                                    double y_step);
VX_API void vx_stdlist_custom_params_set_scene_proj(Tvx_stdlist_custom_params* params, const wchar_t* proj);
/* Generates the box, drawn as a northern 1:1,000,000 sheet and named "Base list". Refused, with nothing
 * written, false and a message in the host environment: steps that are not finite and positive, a box
 * not set, not finite or empty (each minimum must be below its maximum), or more than 100,000 lines or
 * marks along one axis. Every run that is not refused answers true, also one that failed: a failed run
 * shows only in its files. */
VX_API bool vx_stdlist_custom_generate_shapes(Tvx_stdlist_custom_params* params);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VXK_PROJ4_SHP_H */
