# A thin face over CMake's presets: `make help` lists what there is.
.DEFAULT_GOAL := help
JOBS ?= $(shell nproc)

help: ## Show this list
	@grep -hE '^[a-z-]+:.*##' $(MAKEFILE_LIST) | sed -E 's/:[^#]*## /\t/' | expand -t 18

dependencies: ## Install what is missing of Debian's packages
	@scripts/install-dependencies

language-server: dependencies ## Install the language server that tests and the demo talk to
	@scripts/install-language-server

grammar-peer: dependencies ## Install the other grammar engine that the benchmarks run
	@scripts/install-grammar-peer

build: dependencies ## Build everything, optimised, into build/release
	@cmake --preset release
	@cmake --build --preset release --parallel $(JOBS)

demo: build language-server ## Compile the example devices and show what came out
	@scripts/demo build/release/bin/halvorin

test: build language-server ## Build and test everything, the headers each alone among it
	@cmake --build --preset release --parallel $(JOBS) --target all_verify_interface_header_sets
	@ctest --preset release --parallel $(JOBS)
	@$(MAKE) --no-print-directory test-engine

test-engine: dependencies ## Build and test the engine alone, without Qt
	@cmake --preset engine
	@cmake --build --preset engine --parallel $(JOBS)
	@ctest --preset engine --parallel $(JOBS)

test-sanitize: dependencies language-server ## Build and test with address, leak and undefined-behaviour sanitizers
	@cmake --preset sanitize
	@cmake --build --preset sanitize --parallel $(JOBS)
	@UBSAN_OPTIONS=print_stacktrace=1 ctest --preset sanitize --parallel $(JOBS)

fuzz: dependencies ## Run each fuzz target for SECONDS (60 unless told)
	@cmake --preset fuzz
	@cmake --build --preset fuzz --parallel $(JOBS) --target fuzzers
	@scripts/fuzz build/fuzz/bin $(or $(SECONDS),60)

bench: build language-server grammar-peer ## Time the hot paths, each beside a peer or a limit, and print one table
	@scripts/bench build/release/bin/halvorin-benchmarks*

coverage: dependencies language-server ## Run the tests with line counters and print a summary of what they reach
	@cmake --preset coverage
	@cmake --build --preset coverage --parallel $(JOBS)
	@ctest --preset coverage --parallel $(JOBS)
	@scripts/coverage-summary build/coverage

format: dependencies ## Put the code into the project's format
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

lint: build ## Check the format, the includes and clang-tidy's findings
	@git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
	@scripts/check-includes
	@git ls-files 'src/*.cpp' 'hostlibs/*.cpp' 'app/*.cpp' 'plugins/*.cpp' ':!*_windows.cpp' | xargs -P $(JOBS) -n 4 clang-tidy -p build/release --quiet

install: build ## Install into PREFIX (/usr/local unless told)
	@cmake --install build/release $(if $(PREFIX),--prefix $(PREFIX))

package: build ## Pack what would be installed into dist
	@cpack --config build/release/CPackConfig.cmake -B dist

clean: ## Remove everything that was built
	@rm -rf build dist

.PHONY: help dependencies language-server grammar-peer build demo test test-engine test-sanitize fuzz bench coverage format lint install package clean
