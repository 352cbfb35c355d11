# The two commands of the README, the benchmarks and the install.
BUILD ?= build
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=Release
JOBS ?= 2
PREFIX ?= /usr/local
# Debian's interpreter, the one python3-numpy installs for.
PYTHON ?= /usr/bin/python3

.PHONY: demo check bench install deps clean format

# $(call configure,DIR,FLAGS): configures DIR with FLAGS when it has no cache
# or was configured with other flags (kept in DIR/.cmake-flags); a change of
# flags starts from a fresh cache, so a flag taken out of CMAKE_FLAGS is gone
# too (the objects stay, and only what the new flags change is rebuilt).
define configure
	@if [ ! -f $(1)/CMakeCache.txt ] || [ "$$(cat $(1)/.cmake-flags 2>/dev/null)" != "$(strip $(2))" ]; then \
	  rm -f $(1)/CMakeCache.txt $(1)/.cmake-flags; \
	  echo "cmake -S . -B $(1) $(strip $(2))"; \
	  cmake -S . -B $(1) $(2) && echo "$(strip $(2))" > $(1)/.cmake-flags; \
	fi
endef

deps:
	@tools/install-deps.sh test

# The demo needs only the build packages: the test suite is left out of its
# configuration (make check turns it back on).
demo:
	@tools/install-deps.sh build
	$(call configure,$(BUILD),$(CMAKE_FLAGS) -DBUILD_TESTING=OFF)
	cmake --build $(BUILD) -j $(JOBS) --target demo
	$(BUILD)/examples/demo

check:
	@tools/install-deps.sh test
	$(call configure,$(BUILD),$(CMAKE_FLAGS) -DBUILD_TESTING=ON)
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench:
	@tools/install-deps.sh bench
	$(call configure,$(BUILD)-bench,$(CMAKE_FLAGS) -DLBX_BENCH=ON -DBUILD_TESTING=OFF)
	cmake --build $(BUILD)-bench -j $(JOBS)
	@for b in $(BUILD)-bench/bench/bench_*; do echo "== $$b"; $$b --benchmark_counters_tabular=true || exit 1; done
	@echo "== bench/ranking_numpy.py"; $(PYTHON) bench/ranking_numpy.py

# The library, header, Fortran module, pkg-config file, CMake package and docs
# under PREFIX (make install PREFIX=$$HOME/.local).
install:
	@tools/install-deps.sh build
	$(call configure,$(BUILD),$(CMAKE_FLAGS) -DBUILD_TESTING=OFF)
	cmake --build $(BUILD) -j $(JOBS)
	cmake --install $(BUILD) --prefix $(PREFIX)

clean:
	rm -rf $(BUILD) $(BUILD)-bench

format:
	git ls-files '*.cpp' '*.hpp' '*.h' '*.c' | xargs clang-format -i
