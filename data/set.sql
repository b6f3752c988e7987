-- Set.ini: the settings of the installation.
create table tSetting (nGroup integer, nHtmPageSize integer, sWebName text, sWebPass text, sWebBook text,
    sDBPath text, nShowAgentIco integer, sLogDateTime text, sPreOpenDBFile text, lHandle text,
    sOutOpenDBFile text, bWebOk integer default 0);
create table tSetting2 (Key1 text, Value1 text);
create table tAd (Id1 integer primary key autoincrement, Title1 text, Note1 text, Date1 text, Time1 text,
    bWakeOk integer, iid integer);

insert into tSetting values (3, 50, '', '', '', '', 1, '', '', '0', '', 0);
insert into tSetting2 values ('LoadDate', 'all'), ('FirstRun', '1');
