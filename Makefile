# The entry points. Each target first installs the packages it needs (scripts/install-packages) and is safe to repeat.

help:
	@echo 'make run          build Prismo 2 and open the settings of the default device'
	@echo 'make test         build and run all tests; the last line counts them'
	@echo 'make bench        measure the speed and compare it with similar tools'
	@echo 'make check        check style, folder rules and static analysis, and run the tests under sanitizers'
	@echo 'make screenshots  renew the pictures in the documents'
	@echo 'make clean        remove everything that was built'

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
