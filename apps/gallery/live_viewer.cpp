// SPDX-License-Identifier: MIT
#include "live_viewer.h"

#ifdef CORVANE_HAVE_SDL2
#include <SDL2/SDL.h>
#endif

#include <cstdlib>

namespace corvane::gallery {

#ifdef CORVANE_HAVE_SDL2
bool runLiveViewer(Desktop& desktop) {
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) return false;
  if (SDL_Init(SDL_INIT_VIDEO) != 0) return false;
  Canvas& first = desktop.screen();
  SDL_Window* window = SDL_CreateWindow("Corvane", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, first.width(),
                                        first.height(), 0);
  SDL_Renderer* renderer = window ? SDL_CreateRenderer(window, -1, 0) : nullptr;
  SDL_Texture* texture = renderer ? SDL_CreateTexture(renderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING,
                                                      first.width(), first.height())
                                  : nullptr;
  bool ok = texture != nullptr;
  for (bool running = ok; running;) {
    SDL_Event e;
    while (SDL_PollEvent(&e)) {
      switch (e.type) {
        case SDL_QUIT: running = false; break;
        case SDL_MOUSEMOTION: desktop.mouseMove(e.motion.x, e.motion.y); break;
        case SDL_MOUSEBUTTONDOWN:
          desktop.mouseDown(e.button.button == SDL_BUTTON_RIGHT ? 2 : e.button.button == SDL_BUTTON_MIDDLE ? 4 : 1);
          break;
        case SDL_MOUSEBUTTONUP:
          desktop.mouseUp(e.button.button == SDL_BUTTON_RIGHT ? 2 : e.button.button == SDL_BUTTON_MIDDLE ? 4 : 1);
          break;
        default: break;
      }
    }
    desktop.windows().DoEvents();
    Canvas& screen = desktop.screen();
    screen.flush();
    SDL_UpdateTexture(texture, nullptr, screen.row(0), cairo_image_surface_get_stride(screen.surface()));
    SDL_RenderCopy(renderer, texture, nullptr, nullptr);
    SDL_RenderPresent(renderer);
    SDL_Delay(16);
  }
  if (texture) SDL_DestroyTexture(texture);
  if (renderer) SDL_DestroyRenderer(renderer);
  if (window) SDL_DestroyWindow(window);
  SDL_Quit();
  return ok;
}
#else
bool runLiveViewer(Desktop&) { return false; }
#endif

}  // namespace corvane::gallery
