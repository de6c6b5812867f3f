# The two everyday commands: `make play` and `make test`.
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=

.PHONY: play test setup build clean

play: build
	cd $(BUILD)/game && ./korvane

# -noreset: Xvfb otherwise resets whenever its last client leaves, and a test
# that opens its window in that moment finds no display.
test: build
	cd $(BUILD) && SDL_AUDIODRIVER=dummy xvfb-run -a -s "-screen 0 1024x768x24 -noreset" \
	  ctest --output-on-failure -j $(JOBS)

setup:
	./setup.sh

build: setup
	cmake -S . -B $(BUILD) $(CMAKE_FLAGS)
	cmake --build $(BUILD) -j $(JOBS)

clean:
	rm -rf $(BUILD)
