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



/* ===================================================================================================
 * Projection files and the batch reprojector
 * =================================================================================================== */

/* @section proj-services */



/* ===================================================================================================
 * Text lists, TLD files and their reprojection
 * =================================================================================================== */

/* @section text-lists */



/* ===================================================================================================
 * Sheet generation
 * =================================================================================================== */

/* @section generation */



#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VXK_PROJ4_SHP_H */
