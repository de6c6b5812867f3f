#include "shell/WindowEvents.h"

#include <SDL/SDL.h>

#include "shell/Engine.h"

void pumpWindowEvents() {
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        if (event.type == SDL_QUIT) {
            Engine::quit();
        } else if (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_F4 &&
                   (event.key.keysym.mod & (KMOD_LALT | KMOD_RALT))) {
            Engine::quit();
        }
    }
}
