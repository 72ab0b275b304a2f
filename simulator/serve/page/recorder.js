// Recording what is done to the phone, from whichever page, as a scenario; looking at it, keeping it, and
// doing it again on a new phone while one watches.

export function makeRecorder(panel, connection) {
  panel.innerHTML = `
    <div class="row"><button type="button" name="record">Record</button>
      <button type="button" name="replay" disabled>Replay on a new phone</button>
      <button type="button" name="save" disabled>Save</button>
      <span class="hint" role="status"></span></div>
    <label class="unseen" for="recorded">The recording</label>
    <textarea id="recorded" spellcheck="false"
      placeholder="What is done while recording becomes a scenario; vantori-simulator run does it again."></textarea>`;
  const record = panel.querySelector('[name=record]');
  const replay = panel.querySelector('[name=replay]');
  const save = panel.querySelector('[name=save]');
  const status = panel.querySelector('[role=status]');
  const text = panel.querySelector('textarea');
  let recording = false;

  const offer = () => {
    replay.disabled = save.disabled = text.value.trim() === '';
  };

  record.addEventListener('click', async () => {
    const was = recording;
    const scenario = await connection.ask({ do: 'record', on: !was });
    if (was) text.value = scenario;
    offer();
  });
  text.addEventListener('input', offer);
  replay.addEventListener('click', () => connection.send({ do: 'start', scenario: text.value }));
  save.addEventListener('click', () => {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(new Blob([text.value], { type: 'text/plain' }));
    link.download = 'recorded.scenario';
    link.click();
    URL.revokeObjectURL(link.href);
  });
  connection.addEventListener('state', ({ detail }) => {
    recording = detail.recording;
    record.textContent = recording ? 'Stop' : 'Record';
    record.setAttribute('aria-pressed', recording);
    document.body.classList.toggle('recording', recording);
    status.textContent = recording ? 'Recording' : detail.replaying ? 'Replaying' : '';
  });
}
