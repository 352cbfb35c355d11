# The two commands of the README, the benchmarks and the install.
BUILD ?= build
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=Release
JOBS ?= 2
PREFIX ?= /usr/local
DLL_BUILD ?= build-dll
# Debian's interpreter, the one python3-numpy and python3-scipy install for.
PYTHON ?= /usr/bin/python3

.PHONY: demo check check-lapack bench install deps clean format check-asan check-tsan fuzz fuzz-ci \
	dll-deps dll check-dll mutate

# Sanitizer trees: the whole suite under AddressSanitizer, leak detection and
# UndefinedBehaviorSanitizer; the concurrency test under ThreadSanitizer.
SAN_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
SUPP := $(CURDIR)/tools/sanitizers
export ASAN_OPTIONS ?= detect_leaks=1:abort_on_error=1:detect_stack_use_after_return=1
export LSAN_OPTIONS ?= suppressions=$(SUPP)/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS ?= print_stacktrace=1:halt_on_error=1
export TSAN_OPTIONS ?= suppressions=$(SUPP)/tsan.supp:halt_on_error=1:second_deadlock_stack=1:print_suppressions=0
# The fuzz driver: FUZZ_SECONDS of calls from FUZZ_SEED on (make fuzz), or
# the bounded run of CI (make fuzz-ci: fixed seeds, under ASan and UBSan).
FUZZ_SECONDS ?= 60
FUZZ_SEED ?= 1
FUZZ_CI_SECONDS ?= 120

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

# LAPACK's testing programs, linear equations and eigenvalues, against the own
# path of the paired routines (the linear-equation part also runs in make check).
check-lapack:
	@tools/install-deps.sh test
	$(call configure,$(BUILD),$(CMAKE_FLAGS) -DBUILD_TESTING=ON)
	cmake --build $(BUILD) -j $(JOBS) --target check_lapack

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

# The sanitizer trees configure once with their own flags (the test packages).
sanitized = $(call configure,$(BUILD)-$(1),$(SAN_FLAGS) -DBUILD_TESTING=ON -DLBX_SANITIZE=$(2))

check-asan:
	@tools/install-deps.sh test
	$(call sanitized,asan,address)
	cmake --build $(BUILD)-asan -j $(JOBS)
	cd $(BUILD)-asan && ctest --output-on-failure -j $(JOBS)

check-tsan:
	@tools/install-deps.sh test
	$(call sanitized,tsan,thread)
	cmake --build $(BUILD)-tsan -j $(JOBS) --target test_concurrency
	cd $(BUILD)-tsan/tests && OMP_NUM_THREADS=1 ./test_concurrency

fuzz:
	@tools/install-deps.sh test
	$(call sanitized,asan,address)
	cmake --build $(BUILD)-asan -j $(JOBS) --target lbx_fuzz
	$(BUILD)-asan/tests/fuzz/lbx_fuzz --seconds $(FUZZ_SECONDS) --seed $(FUZZ_SEED)

fuzz-ci:
	@tools/install-deps.sh test
	$(call sanitized,asan,address)
	cmake --build $(BUILD)-asan -j $(JOBS) --target lbx_fuzz
	$(BUILD)-asan/tests/fuzz/lbx_fuzz --seconds $(FUZZ_CI_SECONDS) --seed 1 --fixed

# The 32-bit Windows DLL, cross-built with mingw-w64 (LAPACK and FFTW built once
# from Debian's source packages into $(DLL_BUILD)/deps), and its tests under Wine.
dll-deps:
	@tools/install-deps.sh windows
	@JOBS=$(JOBS) tools/build-win-deps.sh $(DLL_BUILD)/deps lapack fftw

dll: dll-deps
	@test -f $(DLL_BUILD)/CMakeCache.txt || cmake -S windows -B $(DLL_BUILD) -G Ninja \
	  -DCMAKE_TOOLCHAIN_FILE=$(CURDIR)/cmake/mingw-i686.cmake -DLBX_DEPS=$(CURDIR)/$(DLL_BUILD)/deps/prefix
	cmake --build $(DLL_BUILD) -j $(JOBS)

check-dll: dll
	tests/dll/run.sh $(DLL_BUILD) -j $(JOBS) --timeout 120

# Each fault listed in tests/mutants/*.toml, put in alone, must fail a test
# (make mutate MUTANTS=tests/mutants/linalg.toml for one chapter).
MUTANTS ?= $(wildcard tests/mutants/*.toml)
mutate:
	$(call configure,$(BUILD),$(CMAKE_FLAGS) -DBUILD_TESTING=ON)
	cmake --build $(BUILD) -j $(JOBS)
	@status=0; for f in $(MUTANTS); do echo "== $$f"; $(PYTHON) tools/mutate.py --build $(BUILD) $$f || status=1; done; exit $$status

clean:
	rm -rf $(BUILD) $(BUILD)-bench $(BUILD)-asan $(BUILD)-tsan $(DLL_BUILD)

format:
	git ls-files '*.cpp' '*.hpp' '*.h' '*.c' | xargs clang-format -i
