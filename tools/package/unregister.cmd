@echo off
rem Takes back what register.cmd did.  Run it as the same user, administrator or not.
call "%~dp0register.cmd" /u
