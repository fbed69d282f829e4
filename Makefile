# Entry points: `make demo` and `make test` do all setup on a fresh Debian machine.
#   deps   install the Debian packages the project needs (scripts/install-deps.sh)
#   test   Debug build with sanitizers and -Werror in build/test, then every test
#   demo   Release build in build/release, then the gallery
#   bench  Release build with the benchmarks in build/release, then panelkit-bench (BENCH_ARGS=...)
#   clean  remove the build folders and the gallery's screenshots

SHELL := /bin/bash
.SHELLFLAGS := -euo pipefail -c

CMAKE ?= cmake
CTEST ?= ctest
JOBS ?= $(shell nproc)
TEST_DIR := build/test
RELEASE_DIR := build/release
GALLERY := $(RELEASE_DIR)/apps/gallery/panelkit-gallery
BENCH := $(RELEASE_DIR)/bench/panelkit-bench
SCREENSHOT_DIR := out
BENCH_ARGS ?=

.PHONY: all deps test demo bench clean

all: test

deps:
	scripts/install-deps.sh

test: deps
	$(CMAKE) -S . -B $(TEST_DIR) -DCMAKE_BUILD_TYPE=Debug -DPANELKIT_SANITIZE=ON -DPANELKIT_WERROR=ON
	$(CMAKE) --build $(TEST_DIR) -j$(JOBS)
	scripts/run-tests.sh $(TEST_DIR)

demo: deps
	$(CMAKE) -S . -B $(RELEASE_DIR) -DCMAKE_BUILD_TYPE=Release -DPANELKIT_BUILD_GALLERY=ON
	$(CMAKE) --build $(RELEASE_DIR) -j$(JOBS) --target panelkit-gallery
	if [[ -n "$${DISPLAY:-}" ]]; then \
	    $(GALLERY); \
	else \
	    echo "No DISPLAY: rendering the gallery's pages to $(SCREENSHOT_DIR)/"; \
	    $(GALLERY) --screenshot $(SCREENSHOT_DIR); \
	fi

bench: deps
	$(CMAKE) -S . -B $(RELEASE_DIR) -DCMAKE_BUILD_TYPE=Release -DPANELKIT_BUILD_BENCH=ON
	$(CMAKE) --build $(RELEASE_DIR) -j$(JOBS) --target panelkit-bench
	$(BENCH) $(BENCH_ARGS)

clean:
	rm -rf build $(SCREENSHOT_DIR)
