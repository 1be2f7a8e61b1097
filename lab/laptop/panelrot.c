/* A module of the X server: teaches the dummy driver to rotate its outputs in software. The C panel is built in as a
 * portrait display, so the laptop has it rotated. */
/* The server's own configuration must come first. */
/* clang-format off */
#include <xorg-server.h>
#include <extinit.h>
#include <xf86.h>
#include <xf86Crtc.h>
#include <xf86Module.h>
#include <xf86RandR12.h>
#include <stdlib.h>
/* clang-format on */

static const int kBytesPerPixel = 4; /* depth 24 */

/* The shadow is what the server renders an unrotated picture of a rotated output into. */
static void* AllocateShadow(xf86CrtcPtr crtc, int width, int height) {
  (void)crtc;
  return calloc((size_t)width * (size_t)height, (size_t)kBytesPerPixel);
}

static PixmapPtr CreateShadow(xf86CrtcPtr crtc, void* pixels, int width, int height) {
  ScrnInfoPtr screen = crtc->scrn;
  return GetScratchPixmapHeader(xf86ScrnToScreen(screen), width, height, screen->depth, screen->bitsPerPixel,
                                width * kBytesPerPixel, pixels);
}

static void DestroyShadow(xf86CrtcPtr crtc, PixmapPtr pixmap, void* pixels) {
  (void)crtc;
  if (pixmap) FreeScratchPixmapHeader(pixmap);
  free(pixels);
}

/* The driver's table of functions is constant: each output gets a copy with the three shadow functions added. */
static void AddRotation(xf86CrtcPtr crtc) {
  xf86CrtcFuncsRec* functions = malloc(sizeof *functions);
  if (!functions) return;
  *functions = *crtc->funcs;
  functions->shadow_allocate = AllocateShadow;
  functions->shadow_create = CreateShadow;
  functions->shadow_destroy = DestroyShadow;
  crtc->funcs = functions;
}

static void InitialiseExtension(void) {
  for (int i = 0; i < screenInfo.numScreens; i++) {
    ScreenPtr screen = screenInfo.screens[i];
    xf86CrtcConfigPtr config = XF86_CRTC_CONFIG_PTR(xf86ScreenToScrn(screen));
    for (int k = 0; k < config->num_crtc; k++) AddRotation(config->crtc[k]);
    xf86RandR12SetRotations(screen, RR_Rotate_0 | RR_Rotate_90 | RR_Rotate_180 | RR_Rotate_270);
    xf86RandR12SetTransformSupport(screen, TRUE);
  }
}

static const ExtensionModule kExtension[] = {{InitialiseExtension, "PANELROT", NULL}};

static pointer SetUp(pointer module, pointer options, int* errorMajor, int* errorMinor) {
  (void)module, (void)options, (void)errorMajor, (void)errorMinor;
  LoadExtensionList(kExtension, 1, FALSE);
  return (pointer)1;
}

static XF86ModuleVersionInfo version = {
    "panelrot", "tessaview lab",     MODINFOSTRING1,        MODINFOSTRING2,      XORG_VERSION_CURRENT, 1, 0,
    0,          ABI_CLASS_EXTENSION, ABI_EXTENSION_VERSION, MOD_CLASS_EXTENSION, {0, 0, 0, 0}};

/* The server looks the module up by this name. */
_X_EXPORT XF86ModuleData panelrotModuleData = {&version, SetUp, NULL};
