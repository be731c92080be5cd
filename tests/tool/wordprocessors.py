"""Runs the programs that the acceptance tests open files with."""
import shutil
import subprocess
import sys

TIMEOUT = 120
# LibreOffice converts many files in one run.
LIBREOFFICE_TIMEOUT = 1200


def require(script, programs):
    """Ends the script as skipped when programs are not installed."""
    absent = [name for name in programs if not shutil.which(name)]
    if absent:
        print('%s: skipped, not installed: %s' % (script, ' '.join(absent)))
        sys.exit(77)


def run(command, timeout=TIMEOUT, **options):
    """The exit status, a text where a program hangs, and what was printed."""
    try:
        done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=timeout, **options)
        return done.returncode, done.stdout.decode('utf-8', 'replace')
    except subprocess.TimeoutExpired:
        return 'timeout', ''


def libreoffice(profile, folder, files, suffix):
    """Converts files to the format of suffix, into folder."""
    return run(['soffice', '--headless', '-env:UserInstallation=file://' + profile, '--convert-to', suffix,
                '--outdir', folder] + files, timeout=LIBREOFFICE_TIMEOUT)
