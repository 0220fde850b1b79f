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
