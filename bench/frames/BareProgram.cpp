// The least that an SDL 1.2 program with a window like the client's does: the yardstick of its start.
// Arguments: width and height of the window.
#include <cstdlib>

#include <SDL.h>

int main(int argc, char* argv[]) {
  if (argc != 3 || SDL_Init(SDL_INIT_VIDEO) != 0) return EXIT_FAILURE;
  SDL_Surface* screen = SDL_SetVideoMode(std::atoi(argv[1]), std::atoi(argv[2]), 16, SDL_DOUBLEBUF);
  if (screen == nullptr) return EXIT_FAILURE;
  for (;;) {
    SDL_Delay(5);
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
      if (event.type == SDL_QUIT) return EXIT_SUCCESS;
    }
    SDL_Flip(screen);
  }
}
