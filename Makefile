# The front door. Each target installs what it needs first (scripts/install-packages) and is safe to repeat.

help:
	@echo 'make run     build Prismo 2 and open the settings of the default device'
	@echo 'make test    build and run all tests; the last line counts them'
	@echo 'make bench   measure, against comparable tools'
	@echo 'make check   layout, static checks, the floors, and the tests under sanitizers'
	@echo 'make screenshots  the pictures in the documents, anew'
	@echo 'make clean   remove everything that was built'

run:
	@scripts/install-packages build run
	@scripts/build release
	@exec setpriv --pdeathsig TERM -- scripts/run build/release/settings/prismo2-settings

test:
	@scripts/install-packages build run display window test
	@scripts/build dev
	@scripts/run-tests build/dev

bench:
	@scripts/install-packages build window bench
	@scripts/build bench
	@scripts/bench

check:
	@scripts/install-packages build run display window test check
	@scripts/check

screenshots:
	@scripts/install-packages build run window pictures
	@scripts/build release
	@/usr/bin/python3 scripts/screenshots build/release

clean:
	rm -rf build

.PHONY: help run test bench check screenshots clean
